#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "platform/sql/Database.h"

namespace koru::test {

/// An empty database with the suite's schema, and a way of reaching it.
class ContractSubject {
 public:
  ContractSubject() = default;
  ContractSubject(const ContractSubject&) = delete;
  ContractSubject& operator=(const ContractSubject&) = delete;
  virtual ~ContractSubject() = default;

  /// A new connection.
  [[nodiscard]] virtual std::unique_ptr<Database> Connect() = 0;
};

struct ContractCase {
  std::string name;
  std::function<std::unique_ptr<ContractSubject>()> make;
};

/// For the name of the test.
inline void PrintTo(const ContractCase& way, std::ostream* out) { *out << way.name; }

/// What every Database must do. The tests are instantiated for each subject.
class DatabaseContract : public testing::TestWithParam<ContractCase> {
 protected:
  Recordset Open(const SqlText& statement) { return database_->Open(statement); }
  /// The first record's field, as text.
  std::string Text(const SqlText& statement, std::string_view column) {
    const Recordset records = Open(statement);
    return records.Field(column).Text();
  }

  std::unique_ptr<ContractSubject> subject_ = GetParam().make();
  std::unique_ptr<Database> database_ = subject_->Connect();
};

}  // namespace koru::test
