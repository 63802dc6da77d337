#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "tools/tds-stand-in/StandInSchema.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// What a stand-in for the suite's server has in the place of its database: an embedded one in memory, empty
/// at first, which answers batches as that server would.
///
/// It knows selections, inserts, updates and deletes of the component and its tests, what StandInSchema
/// knows, and these besides: the session's settings, the question for objects by name in sys.objects,
/// `truncate table`, and one insert between `set identity_insert` on and off. A batch that breaks the rules
/// of the server's dialect (BrokenRules) is refused, and so is a key that is written into a table that the
/// server numbers. A failing statement of a batch does not keep those behind it from running.
class StandInDatabase {
 public:
  using Answer = TdsServer::Answer;

  StandInDatabase();

  /// Any thread may call these; one is served after the other. A refusal has the number and words of the
  /// server where it is obvious which they are, else its number for messages of one's own.
  ///
  /// One answer for each statement of the batch.
  std::vector<Answer> Run(const std::string& batch);
  Answer Call(const ProcedureCall& call);

 private:
  std::vector<Answer> RunWithOwnKeys(const ServerBatch& batch);
  Answer RunBatch(const ServerBatch& batch);
  /// A selection or a write, or one that stands alone between other statements of a batch.
  Answer RunStatement(const ServerBatch& statement);
  void RefuseOwnKey(const ServerBatch& batch) const;
  void Truncate(const std::string& table);

  std::mutex guard_;
  SqliteConnection engine_;
  StandInSchema schema_;
  StatementCache<SqliteStatement> statements_;
};

}  // namespace koru::test
