#include "adapters/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <cstddef>
#include <system_error>
#include <utility>

#include "adapters/sqlite/BindLiteral.h"
#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/FilePath.h"
#include "adapters/sqlite/PermissionStatement.h"
#include "adapters/sqlite/ReadToEnd.h"
#include "adapters/sqlite/WriteBatchLevel.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// What so many records were read from is not kept in memory beside them: it is hardly read twice.
constexpr std::size_t kLongReading = 5'000;

constexpr const char* kBegin = "BEGIN IMMEDIATE";
constexpr const char* kCommit = "COMMIT";

}  // namespace

class SqliteDatabase::SnapshotGroup : public ReadSnapshot {
 public:
  explicit SnapshotGroup(Snapshot& snapshot) : snapshot_(snapshot) { snapshot_.Begin(); }
  SnapshotGroup(const SnapshotGroup&) = delete;
  SnapshotGroup& operator=(const SnapshotGroup&) = delete;
  ~SnapshotGroup() override { snapshot_.End(); }

 private:
  Snapshot& snapshot_;
};

SqliteDatabase::SqliteDatabase(SqliteConnection connection)
    : connection_(std::move(connection)),
      cache_(kKeptStatements,
             [this](const std::string& shape) {
               return connection_.Prepare(TranslateShape(shape, connection_));
             }),
      snapshot_(connection_, kKeptStatements) {
  log_ = PathOf(connection_.WriteAheadLog());
  // Up to 128 MB of pages are kept: with a quarter of that, a calculation over two million document lines
  // takes half as long again. The file is not mapped into memory, where a failing disk would end the program
  // without a word.
  connection_.Execute(
      "PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF; PRAGMA cache_size=-131072; PRAGMA "
      "temp_store=MEMORY");
}

Recordset SqliteDatabase::Open(const SqlText& statement) {
  const StatementShape shape = ReadShape(statement.Text());
  try {
    Recordset records = Run(shape);
    if (records.RecordCount() > kLongReading && openGroups_ == 0 && !snapshot_.Stands())
      connection_.ReleasePages();
    return records;
  } catch (const DatabaseError& failure) {
    const DatabaseError told(failure.ServerText(), failure.Code(), statement.Text());
    CheckGroupStillThere(told);
    throw told;
  }
}

Recordset SqliteDatabase::Run(const StatementShape& shape) {
  if (snapshot_.Stands()) {
    if (SqliteStatement* statement = snapshot_.Ready(shape)) return ReadToEnd(*statement);
    snapshot_.End();
  }
  SqliteStatement& statement = cache_.Get(shape.text);
  if (openGroups_ == 0 && !statement.IsReadOnly()) RequireFiles(shape.text);
  BindAll(statement, shape.literals);
  return ReadToEnd(statement);
}

std::int32_t SqliteDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  return Open(PermissionStatement(procedure, parameters)).RecordCount() > 0 ? 1 : 0;
}

std::unique_ptr<WriteBatch> SqliteDatabase::BeginWriteBatch() {
  snapshot_.End();
  if (openGroups_ == 0) {
    RequireFiles(kBegin);
    connection_.Execute(kBegin);
  }
  auto group = std::make_unique<WriteBatchLevel>([this] { EndGroup(); });
  ++openGroups_;
  return group;
}

std::unique_ptr<ReadSnapshot> SqliteDatabase::BeginReadSnapshot() {
  if (openGroups_ > 0 || snapshot_.Stands()) return std::make_unique<ReadSnapshot>();
  RequireFiles({});
  return std::make_unique<SnapshotGroup>(snapshot_);
}

void SqliteDatabase::EndGroup() {
  if (--openGroups_ > 0) return;
  if (!connection_.InTransaction()) {
    throw DatabaseError("تغييرات اين فرمان ثبت نشد.", SQLITE_ABORT, kCommit);
  }
  try {
    RequireFiles(kCommit);
    connection_.Execute(kCommit);
  } catch (const DatabaseError&) {
    if (connection_.InTransaction()) connection_.Execute("ROLLBACK");
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

void SqliteDatabase::CheckGroupStillThere(const DatabaseError& failure) const {
  if (openGroups_ == 0 || connection_.InTransaction()) return;
  throw DatabaseError("تغييرات پيشين اين فرمان نيز از دست رفت: " + failure.ServerText(), failure.Code(),
                      failure.Statement());
}

}  // namespace koru
