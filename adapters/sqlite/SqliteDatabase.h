#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/Snapshot.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementShape.h"
#include "platform/sql/Database.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

/// The embedded database: statements in the suite's server's dialect against a file. Must outlive its groups.
/// Writing, and each group, throws DatabaseError when the file was deleted or moved meanwhile: SQLite would
/// go on writing into what no program can open any more.
class SqliteDatabase : public Database {
 public:
  /// How many prepared statements are kept. The system sends some sixty shapes.
  static constexpr std::size_t kKeptStatements = 128;

  /// `connection` is open on a file of ours.
  explicit SqliteDatabase(SqliteConnection connection);

  Recordset Open(const SqlText& statement) override;
  /// Knows `spPelinHasPermission( user, permission )` alone: 1 when `tblPelinUserPermission` has the row,
  /// else 0.
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  /// A transaction from its beginning, so that a later statement cannot find the file locked. Throws
  /// DatabaseError when it is locked now.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override;
  /// A snapshot of the file, which holds no lock against anyone. A write inside it ends the snapshot and the
  /// rest of the group runs as without; a group inside another one does nothing.
  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() override;

  /// The number of prepared statements that are kept.
  [[nodiscard]] std::size_t KeptStatements() const { return cache_.Size() + snapshot_.KeptStatements(); }

 private:
  class SnapshotGroup;

  Recordset Run(const StatementShape& shape);
  /// Throws DatabaseError when the file or its log is not in its place. Costs two looks at the folder.
  void RequireFiles(const std::string& statement) const;
  void EndGroup();
  /// Throws the failure of a statement of a group whose transaction SQLite has given up.
  void CheckGroupStillThere(const DatabaseError& failure) const;

  SqliteConnection connection_;
  std::filesystem::path log_;  ///< empty when the file has none
  StatementCache<SqliteStatement> cache_;
  Snapshot snapshot_;
  int openGroups_ = 0;
};

}  // namespace koru
