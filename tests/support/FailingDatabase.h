#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/ForwardingDatabase.h"

namespace koru::test {

/// Which statement is going to fail. Statements and procedure calls count alike.
class FaultPlan {
 public:
  /// What the failing statement's DatabaseError says.
  static constexpr const char* kServerText = "The server is shutting down.";
  static constexpr int kCode = 6005;

  /// Counts from 0 again; the n-th statement from now on (from 1) fails, and only that one. 0: none fails.
  void FailAt(int n) {
    count_ = 0;
    failAt_ = n;
  }
  /// The statements since FailAt, the failed one included.
  [[nodiscard]] int Count() const { return count_; }
  /// Counts a statement; throws DatabaseError when it is the one that fails.
  void CountStatement(const std::string& statement);

 private:
  int count_ = 0;
  int failAt_ = 0;
};

/// Passes everything to another database but the statement that the plan names, which never reaches it.
/// `plan` must outlive it.
class FailingDatabase : public ForwardingDatabase {
 public:
  FailingDatabase(std::unique_ptr<Database> inner, FaultPlan& plan)
      : ForwardingDatabase(std::move(inner)), plan_(plan) {}

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override;

 private:
  FaultPlan& plan_;
};

/// Connects through another connector; one plan counts the statements of all connections.
class FailingConnector : public DatabaseConnector {
 public:
  explicit FailingConnector(DatabaseConnector& inner) : inner_(inner) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;
  [[nodiscard]] FaultPlan& Plan() { return plan_; }

 private:
  DatabaseConnector& inner_;
  FaultPlan plan_;
};

}  // namespace koru::test
