#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "tools/tds-stand-in/StandInSchema.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// The database of the stand-in: an embedded one in memory, empty at first, that answers batches as the
/// suite's server does.
///
/// It knows selections, inserts, updates and deletes of the component and its tests, what StandInSchema
/// knows, and also: the session's settings, the selection of objects by name from sys.objects,
/// `truncate table`, and one insert between `set identity_insert` on and off. A batch that breaks the rules
/// of the server's dialect (BrokenRules) is refused, and so is a key that is written into a table that the
/// server numbers. The statements after a failing one of the same batch still run.
class StandInDatabase {
 public:
  using Answer = TdsServer::Answer;

  StandInDatabase();

  /// Any thread may call these; calls are serialized. A refusal has the number and words of the server where
  /// they are known, else the number for user-defined messages.
  ///
  /// One answer for each statement of the batch.
  std::vector<Answer> Run(const std::string& batch);
  Answer Call(const ProcedureCall& call);

 private:
  std::vector<Answer> RunWithOwnKeys(const ServerBatch& batch);
  Answer RunBatch(const ServerBatch& batch);
  /// A selection or a write.
  Answer RunStatement(const ServerBatch& statement);
  void RefuseOwnKey(const ServerBatch& batch) const;
  void Truncate(const std::string& table);

  std::mutex guard_;
  SqliteConnection engine_;
  StandInSchema schema_;
  StatementCache<SqliteStatement> statements_;
};

}  // namespace koru::test
