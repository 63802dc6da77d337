#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/Snapshot.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "platform/sql/Database.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

/// The embedded database: runs statements in the suite's server's dialect on a file. Must outlive its write
/// batches and snapshots. A statement that writes, and the beginning and end of a batch, throw DatabaseError
/// if the file was deleted or moved meanwhile: SQLite would continue to write to a file that no other program
/// can open.
class SqliteDatabase : public Database {
 public:
  /// The maximum number of prepared statements kept. The system sends some sixty different ones.
  static constexpr std::size_t kKeptStatements = 128;

  /// `connection` is open on a file of the suite.
  explicit SqliteDatabase(SqliteConnection connection);
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;
  ~SqliteDatabase() override;

  Recordset Open(const SqlText& statement) override;
  /// Supports `spPelinHasPermission( user, permission )` only: returns 1 if `tblPelinUserPermission` has the
  /// row, else 0.
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  [[nodiscard]] std::optional<std::int64_t> ForeignWrites() override {
    return connection_.Number("PRAGMA data_version");
  }
  /// Moves what the write-ahead log holds into the file, as far as no other connection reads or writes, so
  /// that the file by itself is whole. The destructor does the same.
  void Idle() noexcept override;
  /// Begins a transaction that holds the write lock, so that no later statement finds the file locked. Throws
  /// DatabaseError if it is locked now.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override;
  /// A read transaction, which blocks no other connection. Creates the indexes that a file of an earlier
  /// version lacks (AddedIndexes.h) first. A statement that writes ends the snapshot; later statements see
  /// the current data. Inside a write batch or another snapshot it has no effect.
  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() override;

  /// The number of prepared statements currently kept.
  [[nodiscard]] std::size_t KeptStatements() const { return cache_.Size() + snapshot_.KeptStatements(); }

 private:
  class SnapshotScope;

  Recordset Run(const NormalizedStatement& statement);
  /// From the first batch or snapshot on, the page cache may hold 128 MB.
  void KeepManyPages();
  /// Throws DatabaseError if the file or its log is not at its path. Costs two calls of the file system.
  void RequireFiles(const std::string& statement) const;
  void EndBatchLevel();
  /// Throws if `failure` made SQLite roll the batch's transaction back.
  void CheckBatchNotLost(const DatabaseError& failure) const;

  SqliteConnection connection_;
  std::filesystem::path log_;  ///< the write-ahead log; empty when the file has none
  StatementLead lead_;         ///< of the last statement: a save sends thousands with the same
  StatementCache<SqliteStatement> cache_;
  Snapshot snapshot_;
  int batchLevels_ = 0;
  bool keepsManyPages_ = false;
};

}  // namespace koru
