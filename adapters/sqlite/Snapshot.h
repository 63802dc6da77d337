#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/KeyRanks.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementShape.h"

namespace koru {

/// Many statements that read the same state of the file. What other connections write meanwhile is not seen,
/// and does not wait. Selections of keys that the statements share are made once and kept until the snapshot
/// ends: nothing that they were made from can have changed.
class Snapshot {
 public:
  /// `connection` must outlive the object. At most so many prepared statements are kept, also from one
  /// snapshot to the next.
  Snapshot(SqliteConnection& connection, std::size_t keptStatements);

  /// The state is that of the first statement that reads. Throws DatabaseError.
  void Begin();
  /// Does nothing when there is none. Does not throw: nothing was written.
  void End() noexcept;
  /// Whether there is one; a failure may have ended it.
  [[nodiscard]] bool Stands();

  /// The statement with its values, ready to run and valid until the next one; nullptr when it writes, for
  /// which the snapshot has to end. Throws DatabaseError.
  [[nodiscard]] SqliteStatement* Ready(const StatementShape& shape);

  [[nodiscard]] std::size_t KeptStatements() const { return statements_.Size(); }

 private:
  using Selection = ShapeOverKeys::Keys;
  struct KeptStatement {
    SqliteStatement statement;
    std::vector<Selection> selections;
  };
  struct KeptRanks {
    std::string sql;
    std::string order;
    std::vector<Literal> values;
    KeyRanks ranks;
  };
  const KeyRanks& RanksOf(const Selection& selection, const std::vector<Literal>& literals);

  SqliteConnection& connection_;
  StatementCache<KeptStatement> statements_;
  std::list<KeptRanks> ranks_;
  bool open_ = false;
};

}  // namespace koru
