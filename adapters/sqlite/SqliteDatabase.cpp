#include "adapters/sqlite/SqliteDatabase.h"

#include <sqlite3.h>

#include <cstddef>
#include <utility>

#include "adapters/sqlite/BindLiteral.h"
#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NestedGroup.h"
#include "adapters/sqlite/PermissionStatement.h"
#include "platform/Errors.h"

namespace koru {
namespace {

/// What so many records were read from is not kept in memory beside them: it is hardly read twice.
constexpr std::size_t kLongReading = 5'000;

/// A statement that is kept must not stay half read: it would hold its lock and its snapshot of the file.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(SqliteStatement& statement) : statement_(statement) {}
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;
  ~ResetAtEnd() { statement_.Reset(); }

 private:
  SqliteStatement& statement_;
};

void AppendRow(Recordset& records, const SqliteStatement& statement, int columns) {
  for (int column = 0; column < columns; ++column) {
    switch (statement.ColumnType(column)) {
      case SQLITE_NULL:
        records.AppendNull();
        break;
      case SQLITE_INTEGER:
        records.AppendInteger(statement.Integer(column));
        break;
      case SQLITE_FLOAT:
        records.AppendReal(statement.Real(column));
        break;
      default:
        records.AppendText(statement.Text(column));
    }
  }
}

Recordset ReadToEnd(SqliteStatement& statement) {
  // The first step comes before the names: it prepares the statement anew when the tables have changed.
  bool hasRow = statement.Step();
  const int columns = statement.ColumnCount();
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column) names.push_back(statement.ColumnName(column));
  Recordset records(std::move(names));
  for (; hasRow; hasRow = statement.Step()) AppendRow(records, statement, columns);
  return records;
}

}  // namespace

class SqliteDatabase::SnapshotGroup : public ReadGroup {
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
    if (SqliteStatement* statement = snapshot_.Ready(shape)) {
      const ResetAtEnd reset(*statement);
      return ReadToEnd(*statement);
    }
    snapshot_.End();
  }
  SqliteStatement& statement = cache_.Get(shape.text);
  const ResetAtEnd reset(statement);
  BindAll(statement, shape.literals);
  return ReadToEnd(statement);
}

std::int32_t SqliteDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  return Open(PermissionStatement(procedure, parameters)).RecordCount() > 0 ? 1 : 0;
}

std::unique_ptr<WriteGroup> SqliteDatabase::BeginWriteGroup() {
  snapshot_.End();
  if (openGroups_ == 0) connection_.Execute("BEGIN IMMEDIATE");
  auto group = std::make_unique<NestedGroup>([this] { EndGroup(); });
  ++openGroups_;
  return group;
}

std::unique_ptr<ReadGroup> SqliteDatabase::BeginReadGroup() {
  if (openGroups_ > 0 || snapshot_.Stands()) return std::make_unique<ReadGroup>();
  return std::make_unique<SnapshotGroup>(snapshot_);
}

void SqliteDatabase::EndGroup() {
  if (--openGroups_ > 0) return;
  if (!connection_.InTransaction()) {
    throw DatabaseError("تغييرات اين فرمان ثبت نشد.", SQLITE_ABORT, "COMMIT");
  }
  try {
    connection_.Execute("COMMIT");
  } catch (const DatabaseError&) {
    if (connection_.InTransaction()) connection_.Execute("ROLLBACK");
    throw;
  }
}

void SqliteDatabase::CheckGroupStillThere(const DatabaseError& failure) const {
  if (openGroups_ == 0 || connection_.InTransaction()) return;
  throw DatabaseError("تغييرات پيشين اين فرمان نيز از دست رفت: " + failure.ServerText(), failure.Code(),
                      failure.Statement());
}

}  // namespace koru
