#include "tests/support/FailingDatabase.h"

#include "platform/sql/DatabaseError.h"

namespace koru::test {

void FaultPlan::CountStatement(const std::string& statement) {
  if (++count_ == failAt_) throw DatabaseError(kServerText, kCode, statement);
}

Recordset FailingDatabase::Open(const SqlText& statement) {
  plan_.CountStatement(statement.Text());
  return inner_->Open(statement);
}

std::int32_t FailingDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  plan_.CountStatement(std::string(procedure));
  return inner_->Call(procedure, parameters);
}

std::unique_ptr<Database> FailingConnector::Connect(const std::string& connectionText) {
  return std::make_unique<FailingDatabase>(inner_.Connect(connectionText), plan_);
}

}  // namespace koru::test
