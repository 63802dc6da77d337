#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "adapters/odbc/OdbcConnector.h"
#include "database/sqlserver/EmptyScratchDatabase.h"
#include "platform/sql/DatabaseError.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {

/// A stand-in server and a connection to it through ODBC.
class StandInServerTest : public testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<Database> Connect() const {
    return OdbcConnector().Connect(server_.ConnectionText());
  }
  Recordset Open(const SqlText& statement) { return database_->Open(statement); }
  Recordset Open(FixedSql statement) { return Open(SqlText(statement)); }
  std::string Text(FixedSql statement, const char* column) { return Open(statement).Field(column).Text(); }

  /// The refusal of a statement, `number: words`; empty when it succeeds.
  std::string Refusal(const SqlText& statement) {
    return RefusalOf([&] { Open(statement); });
  }
  std::string Refusal(FixedSql statement) { return Refusal(SqlText(statement)); }
  std::string CallRefusal(const char* procedure, const std::vector<std::int32_t>& arguments) {
    return RefusalOf([&] { database_->Call(procedure, arguments); });
  }

  StandInServer server_;
  std::unique_ptr<Database> database_ = Connect();

 private:
  template <class Work>
  static std::string RefusalOf(Work work) {
    try {
      work();
    } catch (const DatabaseError& failure) {
      return std::to_string(failure.Code()) + ": " + failure.ServerText();
    }
    return {};
  }
};

/// One with the suite's tables.
class SuiteServerTest : public StandInServerTest {
 protected:
  SuiteServerTest() { EmptyScratchDatabase(*database_); }
};

/// Matches what begins with the number and holds the words.
inline testing::AssertionResult IsRefusal(const std::string& error, int number, const std::string& words) {
  if (error.starts_with(std::to_string(number) + ": ") && error.find(words) != std::string::npos) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << (error.empty() ? "went through" : error);
}

}  // namespace koru::test
