#include "adapters/odbc/OdbcDatabase.h"

#include <optional>
#include <utility>

#include "adapters/odbc/OdbcSession.h"
#include "adapters/sqlite/WriteBatchLevel.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

OdbcDatabase::OdbcDatabase(OdbcTarget target, OdbcTimeouts timeouts, std::unique_ptr<OdbcDialect> dialect)
    : target_(std::move(target)), timeouts_(timeouts), dialect_(std::move(dialect)) {
  Session();
}

OdbcDatabase::~OdbcDatabase() = default;

OdbcSession& OdbcDatabase::Session() {
  if (!session_) {
    auto opened = std::make_unique<OdbcSession>(target_, timeouts_);
    opened->Run({dialect_->SessionSettings(), {}});
    session_ = std::move(opened);
  }
  return *session_;
}

template <class Work>
auto OdbcDatabase::Tried(const std::string& statement, Work work) {
  OdbcSession& session = Session();
  try {
    return work(session);
  } catch (const DatabaseError& failure) {
    if (session.IsLost()) session_.reset();
    throw DatabaseError(failure.ServerText(), failure.Code(), statement);
  }
}

Recordset OdbcDatabase::Open(const SqlText& statement) {
  const SentStatement sent = dialect_->Write(statement.Text());
  return Tried(statement.Text(), [&](OdbcSession& session) { return session.Run(sent); });
}

std::int32_t OdbcDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  const SqlName name(procedure);
  if (const std::optional<SqlText> statement = dialect_->ProcedureAsStatement(name.text, parameters)) {
    return Open(*statement).RecordCount() > 0 ? 1 : 0;
  }
  return Tried(std::string(name.text),
               [&](OdbcSession& session) { return session.Call(name.text, parameters); });
}

std::unique_ptr<WriteBatch> OdbcDatabase::BeginWriteBatch() {
  const auto statements = dialect_->WriteBatchStatements();
  if (!statements) return std::make_unique<WriteBatchLevel>(nullptr);
  if (openGroups_ == 0) RunAlone(statements->begin);
  auto group = std::make_unique<WriteBatchLevel>([this] { EndGroup(); });
  ++openGroups_;
  return group;
}

void OdbcDatabase::EndGroup() {
  if (--openGroups_ > 0) return;
  const OdbcDialect::GroupStatements statements = *dialect_->WriteBatchStatements();
  try {
    RunAlone(statements.end);
  } catch (const DatabaseError&) {
    if (session_ != nullptr) RunAlone(statements.giveUp);
    throw;
  }
}

void OdbcDatabase::RunAlone(const std::string& statement) {
  Tried(statement, [&](OdbcSession& session) { return session.Run({statement, {}}); });
}

}  // namespace koru
