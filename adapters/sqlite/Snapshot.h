#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/RankedKeySet.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"

namespace koru {

/// A read transaction for many statements, which all see the same state of the file. Other connections write
/// meanwhile without waiting, and their changes are not visible. Subqueries that the statements share are
/// hoisted, and their results kept until the snapshot ends: within it the data cannot change.
class Snapshot {
 public:
  /// `connection` must outlive the object. Keeps up to `keptStatements` prepared statements, also across
  /// snapshots.
  Snapshot(SqliteConnection& connection, std::size_t keptStatements);

  /// The first statement that reads fixes the state. Throws DatabaseError.
  void Begin();
  /// Does nothing if no snapshot is open.
  void End() noexcept;
  /// Whether a snapshot is open; a failing statement may have ended it.
  [[nodiscard]] bool IsOpen();

  /// The statement with its parameters bound, ready to run and valid until the next call. Returns nullptr for
  /// a statement that writes: it has to run outside the snapshot. Throws DatabaseError.
  [[nodiscard]] SqliteStatement* Ready(const NormalizedStatement& statement);

  [[nodiscard]] std::size_t KeptStatements() const { return statements_.Size(); }

 private:
  using Subquery = HoistedStatement::Subquery;
  struct KeptStatement {
    SqliteStatement statement;
    std::vector<Subquery> subqueries;
  };
  struct KeptKeySet {
    std::string sql;
    std::string order;
    std::vector<Literal> values;
    RankedKeySet keys;
  };
  const RankedKeySet& KeysOf(const Subquery& subquery, const std::vector<Literal>& literals);

  SqliteConnection& connection_;
  StatementCache<KeptStatement> statements_;
  std::list<KeptKeySet> keySets_;
  bool open_ = false;
};

}  // namespace koru
