#include "adapters/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <cstddef>
#include <system_error>
#include <utility>

#include "adapters/sqlite/AddedIndexes.h"
#include "adapters/sqlite/BindLiteral.h"
#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/PermissionStatement.h"
#include "adapters/sqlite/ReadToEnd.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/WriteBatchLevel.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// After a result with more records than this, the page cache is released: such a list is rarely read twice.
constexpr std::size_t kMaxRecordsToCache = 5'000;

constexpr const char* kBegin = "BEGIN IMMEDIATE";
constexpr const char* kCommit = "COMMIT";

/// For statements and the end of a batch whose transaction SQLite has rolled back.
constexpr const char* kNotStored = "تغييرات اين فرمان ثبت نشد.";

int PrimaryCode(const DatabaseError& failure) { return failure.Code() & 0xFF; }

}  // namespace

class SqliteDatabase::SnapshotScope : public ReadSnapshot {
 public:
  explicit SnapshotScope(Snapshot& snapshot) : snapshot_(snapshot) { snapshot_.Begin(); }
  SnapshotScope(const SnapshotScope&) = delete;
  SnapshotScope& operator=(const SnapshotScope&) = delete;
  ~SnapshotScope() override { snapshot_.End(); }

 private:
  Snapshot& snapshot_;
};

SqliteDatabase::SqliteDatabase(SqliteConnection connection)
    : connection_(std::move(connection)),
      cache_(kKeptStatements,
             [this](const std::string& normalized) {
               return connection_.Prepare(TranslateOrdered(normalized, connection_));
             }),
      snapshot_(connection_, kKeptStatements) {
  log_ = PathOf(connection_.WriteAheadLog());
  // Of the pages that a single statement reads, 2 MB suffice: a long list reads most of them once. The file
  // is not memory-mapped: a failing disk would kill the program with a signal, where a read reports an error.
  connection_.Execute(
      "PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF; PRAGMA cache_size=-2048; PRAGMA temp_store=MEMORY");
}

/// For many statements over the same pages. With a quarter of these 128 MB, a calculation over two million
/// document lines takes 1.5 times as long.
void SqliteDatabase::KeepManyPages() {
  if (!std::exchange(keepsManyPages_, true)) connection_.Execute("PRAGMA cache_size=-131072");
}

// SQLite itself does this only when the last connection to the file is closed.
SqliteDatabase::~SqliteDatabase() { SqliteDatabase::Idle(); }

void SqliteDatabase::Idle() noexcept {
  if (batchLevels_ == 0 && !snapshot_.IsOpen()) connection_.Checkpoint();
}

Recordset SqliteDatabase::Open(const SqlText& statement) {
  const NormalizedStatement normalized = Normalize(statement.Text(), lead_);
  // Without its transaction, a later statement of the batch would be stored by itself.
  if (batchLevels_ > 0 && !connection_.InTransaction())
    throw DatabaseError(kNotStored, SQLITE_ABORT, statement.Text());
  try {
    Recordset records = Run(normalized);
    if (records.RecordCount() > kMaxRecordsToCache && batchLevels_ == 0 && !snapshot_.IsOpen())
      connection_.ReleasePages();
    return records;
  } catch (const DatabaseError& failure) {
    const DatabaseError ofStatement(failure.ServerText(), failure.Code(), statement.Text(), failure.Cause());
    CheckBatchNotLost(ofStatement);
    throw ofStatement;
  }
}

Recordset SqliteDatabase::Run(const NormalizedStatement& statement) {
  if (snapshot_.IsOpen()) {
    if (SqliteStatement* ready = snapshot_.Ready(statement)) return ReadToEnd(*ready);
    snapshot_.End();
  }
  SqliteStatement& prepared = cache_.Get(statement.text);
  if (batchLevels_ == 0 && !prepared.IsReadOnly()) RequireFiles(statement.text);
  BindAll(prepared, statement.literals);
  return ReadToEnd(prepared);
}

std::int32_t SqliteDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  return Open(PermissionStatement(procedure, parameters)).RecordCount() > 0 ? 1 : 0;
}

std::unique_ptr<WriteBatch> SqliteDatabase::BeginWriteBatch() {
  snapshot_.End();
  if (batchLevels_ == 0) {
    RequireFiles(kBegin);
    KeepManyPages();
    connection_.Execute(kBegin);
  }
  auto level = std::make_unique<WriteBatchLevel>([this] { EndBatchLevel(); });
  ++batchLevels_;
  return level;
}

std::unique_ptr<ReadSnapshot> SqliteDatabase::BeginReadSnapshot() {
  if (batchLevels_ > 0 || snapshot_.IsOpen()) return std::make_unique<ReadSnapshot>();
  RequireFiles({});
  KeepManyPages();
  AddMissingIndexes(connection_);
  return std::make_unique<SnapshotScope>(snapshot_);
}

void SqliteDatabase::EndBatchLevel() {
  if (--batchLevels_ > 0) return;
  if (!connection_.InTransaction()) {
    throw DatabaseError(kNotStored, SQLITE_ABORT, kCommit);
  }
  try {
    RequireFiles(kCommit);
    connection_.Execute(kCommit);
  } catch (const DatabaseError& failure) {
    if (connection_.InTransaction()) connection_.Execute("ROLLBACK");
    // This program and others do not see the changes now. But the log may hold all of them on the disk, and
    // then they are found after a crash or a power cut.
    if (PrimaryCode(failure) == SQLITE_IOERR)
      throw UncertainWrite(failure.ServerText(), failure.Code(), failure.Statement(), failure.Cause());
    throw;
  }
}

void SqliteDatabase::RequireFiles(const std::string& statement) const {
  std::error_code error;
  std::string lost;
  if (connection_.HasMoved()) {
    lost = connection_.File();
  } else if (!log_.empty() && !std::filesystem::exists(log_, error) && !error) {
    lost = TextOf(log_);
  }
  if (lost.empty()) return;
  throw DatabaseError("پروندة پايگاه داده از جاي خود رفته است: " + LeftToRight(lost), SQLITE_READONLY_DBMOVED,
                      statement);
}

void SqliteDatabase::CheckBatchNotLost(const DatabaseError& failure) const {
  if (batchLevels_ == 0 || connection_.InTransaction()) return;
  throw DatabaseError("تغييرات پيشين اين فرمان نيز از دست رفت.\n" + failure.ServerText(), failure.Code(),
                      failure.Statement(), failure.Cause());
}

}  // namespace koru
