#include "tests/support/FailingDatabase.h"

#include "platform/sql/DatabaseError.h"

namespace koru::test {

void FaultPlan::CountStatement(const std::string& statement) {
  if (++count_ == failAt_) throw DatabaseError(kServerText, kCode, statement);
}

Recordset FailingDatabase::Open(const SqlText& statement) {
  plan_.CountStatement(statement.Text());
  return Inner().Open(statement);
}

std::int32_t FailingDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  plan_.CountStatement(std::string(procedure));
  return Inner().Call(procedure, parameters);
}

void FailingDatabase::OpenAll(const std::vector<SqlText>& statements,
                              const std::function<void(std::size_t, const Recordset&)>& take) {
  for (std::size_t i = 0; i < statements.size(); ++i) {
    try {
      plan_.CountStatement(statements[i].Text());
    } catch (const DatabaseError&) {
      Inner().OpenAll({statements.begin(), statements.begin() + static_cast<std::ptrdiff_t>(i)}, take);
      throw;
    }
  }
  Inner().OpenAll(statements, take);
}

std::unique_ptr<Database> FailingConnector::Connect(const std::string& connectionText) {
  return std::make_unique<FailingDatabase>(inner_.Connect(connectionText), plan_);
}

}  // namespace koru::test
