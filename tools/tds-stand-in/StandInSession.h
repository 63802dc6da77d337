#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "platform/sql/DatabaseError.h"
#include "tools/tds-stand-in/StandInDatabase.h"
#include "tools/tds-stand-in/StandInScript.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// One client of the stand-in: answers batches and calls as the suite's server does.
///
/// It knows selections, inserts, updates and deletes of the component and its tests, what StandInSchema
/// knows, and also: the session's settings, the selection of objects by name from sys.objects,
/// `truncate table`, one insert between `set identity_insert` on and off, transactions, exclusive application
/// locks (sp_getapplock), whole variables, `if ... <statement>` and `return`. Statements of one batch are
/// separated by semicolons. A batch that breaks the rules of the server's dialect (BrokenRules) or names a
/// column that does not exist is refused before any of it runs. After another failing statement the next one
/// runs; a missing table ends the batch, and a value that cannot be converted also undoes the transaction.
class StandInSession {
 public:
  using Answer = TdsServer::Answer;

  /// `database` must outlive the session; `name` is what the client takes it for.
  StandInSession(StandInDatabase& database, std::string name);
  StandInSession(const StandInSession&) = delete;
  StandInSession& operator=(const StandInSession&) = delete;
  /// Undoes an open transaction.
  ~StandInSession();

  /// One answer for each statement of the batch that gives rows or writes. A refusal has the number and words
  /// of the server where they are known, else the number for user-defined messages.
  std::vector<Answer> Run(const std::string& batch);
  Answer Call(const ProcedureCall& call);
  /// Makes the session a deadlock's victim: its transaction is undone. Answers the refusal.
  Answer LoseDeadlock();

 private:
  /// The answers of the statements so far, until one ends the batch.
  struct Script {
    ScriptValues values;
    std::vector<Answer> answers;
    bool isEnded = false;
  };

  void RunScript(const std::vector<ServerBatch>& statements, Script& script);
  void Refuse(const DatabaseError& failure, Script& script);
  void CheckBefore(const std::vector<ServerBatch>& statements);
  void RunPart(const ServerBatch& statement, Script& script);
  /// False for a statement of another kind.
  bool RunControl(const ServerBatch& statement, Script& script);
  bool RunTransactionWord(const ServerBatch& statement);
  void RunIf(const ServerBatch& statement, Script& script);
  void RunWithOwnKeys(const ServerBatch& statement, Script& script);
  int TakeLock(const LockCall& call);
  /// A selection or a write.
  Answer RunStatement(const ServerBatch& statement);
  void RunChange(const ServerBatch& statement);
  [[nodiscard]] std::int64_t Evaluated(const std::string& expression, const Script& script);
  [[nodiscard]] SqliteStatement& Prepared(const ServerBatch& statement, std::vector<Literal>& literals);
  void RefuseOwnKey(const ServerBatch& statement) const;
  void Truncate(const std::string& table);

  void BeginInEngine();
  void Commit();
  void RollBack();

  StandInDatabase& database_;
  std::string name_;
  SqliteConnection engine_;
  StatementCache<SqliteStatement> statements_;
  StandInLocks::Entered entered_;  ///< while a batch or call runs
  int transactions_ = 0;
  std::optional<StandInSchema> schemaBefore_;  ///< a transaction that has changed the schema
};

}  // namespace koru::test
