#include "scenario/StatementLog.h"

#include <utility>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/ForwardingDatabase.h"

namespace koru {
namespace {

std::string CallText(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  std::string text = "{? = CALL " + std::string(procedure) + "(";
  for (const std::int32_t parameter : parameters) {
    text += (text.back() == '(' ? " " : ", ") + std::to_string(parameter);
  }
  return text + " ) }";
}

}  // namespace

namespace {

/// Whether a statement reads the stored counting to find changes by other stations. How often that happens
/// depends on what the database can tell, so a scenario neither lists nor fails these.
bool LooksForChanges(std::string_view statement) {
  return statement.starts_with("Select * from tblInventoryCounting Where ID = ") ||
         statement.starts_with("Select * from tblInventoryCountingDetail Where CountingID = ") ||
         statement.starts_with("Select Code from tblInventoryCounting Where ID = ");
}

}  // namespace

class StatementLog::Connection : public ForwardingDatabase {
 public:
  Connection(StatementLog& log, std::unique_ptr<Database> inner)
      : ForwardingDatabase(std::move(inner)), log_(log) {}

  Recordset Open(const SqlText& statement) override {
    log_.Note(statement.Text());
    return Inner().Open(statement);
  }
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override {
    log_.Note(CallText(procedure, parameters));
    return Inner().Call(procedure, parameters);
  }
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override {
    for (std::size_t i = 0; i < statements.size(); ++i) {
      try {
        log_.Note(statements[i].Text());
      } catch (const DatabaseError&) {
        Inner().OpenAll({statements.begin(), statements.begin() + static_cast<std::ptrdiff_t>(i)}, take);
        throw;
      }
    }
    Inner().OpenAll(statements, take);
  }

 private:
  StatementLog& log_;
  std::unique_ptr<Database> inner_;
};

std::unique_ptr<Database> StatementLog::Connect(const std::string& connectionText) {
  return std::make_unique<Connection>(*this, inner_.Connect(connectionText));
}

void StatementLog::FailStatement(int number, std::string serverText) {
  untilFailure_ = number;
  failureText_ = std::move(serverText);
}

void StatementLog::Note(const std::string& statement) {
  constexpr int kUserDefinedError = 50000;
  if (LooksForChanges(statement)) return;
  statements_.push_back(statement);
  if (untilFailure_ > 0 && --untilFailure_ == 0)
    throw DatabaseError(failureText_, kUserDefinedError, statement);
}

}  // namespace koru
