#include "tests/support/TestDatabase.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Schema.h"

namespace koru::test {
namespace {

SqliteConnection MakeAndOpen(const std::string& file) {
  CreateDatabaseFile(file, EmbeddedSchema());
  return {file, SqliteConnection::Mode::Existing, std::chrono::seconds(5)};
}

std::string FieldText(const SqliteStatement& statement, int column) {
  return statement.IsNull(column) ? "NULL" : std::string(statement.Text(column));
}

std::vector<std::string> Column(SqliteConnection& connection, const std::string& sql) {
  std::vector<std::string> values;
  SqliteStatement statement = connection.Prepare(sql);
  while (statement.Step()) values.push_back(FieldText(statement, 0));
  return values;
}

/// A query for each row of a table as one text, in which a text is quoted and NULL is not.
std::string RowsAsText(SqliteConnection& connection, const std::string& table) {
  std::string joined;
  for (const std::string& column :
       Column(connection, "select name from pragma_table_info('" + table + "')")) {
    joined += joined.empty() ? "'" : " || ', ";
    joined += column;
    joined += "=' || quote(" + column;
    joined += ")";
  }
  return "select " + joined + " from " + table;
}

}  // namespace

TestDatabase::TestDatabase() : file_(folder_.File("test.koru")), connection_(MakeAndOpen(file_)) {}

std::string TestDatabase::ConnectionText() const { return "Provider=SQLite;Data Source=\"" + file_ + "\""; }

std::string TestDatabase::Scalar(const std::string& sql) {
  SqliteStatement statement = connection_.Prepare(sql);
  return statement.Step() ? FieldText(statement, 0) : "none";
}

std::string TestDatabase::Rows(const std::string& sql) {
  std::string text;
  SqliteStatement statement = connection_.Prepare(sql);
  while (statement.Step()) {
    for (int column = 0; column < statement.ColumnCount(); ++column) {
      text += (column == 0 ? "" : "|") + FieldText(statement, column);
    }
    text += '\n';
  }
  return text;
}

std::string TestDatabase::Dump() {
  std::string dump;
  const std::string tables =
      "select name from sqlite_schema where type = 'table' and name not like 'sqlite[_]%' order by name";
  for (const std::string& table : Column(connection_, tables)) {
    std::vector<std::string> rows = Column(connection_, RowsAsText(connection_, table));
    std::sort(rows.begin(), rows.end());
    for (const std::string& row : rows) {
      dump += table;
      dump += ": " + row;
      dump += '\n';
    }
  }
  return dump;
}

}  // namespace koru::test
