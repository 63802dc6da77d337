#include "database/sqlserver/CopyRows.h"

#include <sqlite3.h>

#include <algorithm>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "services/FixQuote.h"

namespace koru {
namespace {

/// The server takes 1000 rows in a statement.
constexpr int kRowsOfStatement = 500;

std::vector<std::string> Column(SqliteConnection& from, const std::string& query) {
  std::vector<std::string> names;
  SqliteStatement select = from.Prepare(query);
  while (select.Step()) names.emplace_back(select.Text(0));
  return names;
}

SqlText Written(const SqliteStatement& row, int column) {
  switch (row.ColumnType(column)) {
    case SQLITE_NULL:
      return SqlText("NULL");
    case SQLITE_INTEGER:
      return SqlText() + row.Integer(column);
    case SQLITE_FLOAT:
      return SqlText() + row.Real(column);
    default:
      return SqlText("'") + Typed(FixQuote(row.Text(column))) + "'";
  }
}

SqlText Written(const SqliteStatement& row) {
  SqlText values("(");
  for (int column = 0; column < row.ColumnCount(); ++column) {
    if (column > 0) values += ",";
    values += Written(row, column);
  }
  return values + ")";
}

class Copy {
 public:
  Copy(SqliteConnection& from, Database& to, const SampleProgress& progress)
      : from_(from), to_(to), progress_(progress) {}

  void Run() {
    const std::vector<std::string> tables =
        Column(from_, "select name from sqlite_schema where type='table' and name not like 'sqlite[_]%'");
    for (const std::string& table : tables) all_ += from_.Number("select count(*) from " + table);
    ReportProgress();
    for (const std::string& table : tables) CopyTable(table);
  }

 private:
  void CopyTable(const std::string& table) {
    const SqlText columns = ColumnsOf(table);
    SqliteStatement rows = from_.Prepare("select " + columns.Text() + " from " + table + " not indexed");
    for (bool more = rows.Step(); more;) {
      SqlText insert = SqlText("insert into ") + SqlName(table) + " (" + columns + ") values ";
      int count = 0;
      for (; more && count < kRowsOfStatement; more = rows.Step(), ++count) {
        if (count > 0) insert += ",";
        insert += Written(rows);
      }
      to_.Open(WithKeys(table, insert));
      done_ += count;
      ReportProgress();
    }
    SkipDeletedKeys(table);
  }

  /// The key of a numbered row is taken from the statement while this is on, and in this session alone.
  [[nodiscard]] static SqlText WithKeys(const std::string& table, const SqlText& insert) {
    if (!IsNumberedByServer(table)) return insert;
    return SqlText("set identity_insert ") + SqlName(table) + " on " + insert + " set identity_insert " +
           SqlName(table) + " off";
  }

  /// Countings may refer to deleted documents, whose keys must not be assigned again: inserting and deleting
  /// a row with the last assigned key advances the server's counter.
  void SkipDeletedKeys(const std::string& table) {
    const std::int64_t last = from_.Number("select seq from sqlite_sequence where name='" + table + "'");
    if (last == 0 || last == from_.Number("select max(ID) from " + table)) return;
    to_.Open(WithKeys(table, SqlText("insert into ") + SqlName(table) + " (ID) values (" + last + ")"));
    to_.Open(SqlText("delete ") + SqlName(table) + " where ID=" + last);
  }

  SqlText ColumnsOf(const std::string& table) {
    SqlText columns;
    for (const std::string& name : Column(from_, "select name from pragma_table_info('" + table + "')")) {
      if (!columns.Empty()) columns += ",";
      columns += SqlName(name);
    }
    return columns;
  }

  void ReportProgress() const {
    if (progress_) progress_(all_ == 0 ? 100 : static_cast<int>(done_ * 100 / all_));
  }

  SqliteConnection& from_;
  Database& to_;
  const SampleProgress& progress_;
  std::int64_t done_ = 0;
  std::int64_t all_ = 0;
};

}  // namespace

void CopyRows(const std::string& file, Database& to, const SampleProgress& progress) {
  SqliteConnection from(file, SqliteConnection::Mode::Existing, SqliteConnector::kBusyTimeout);
  Copy(from, to, progress).Run();
}

}  // namespace koru
