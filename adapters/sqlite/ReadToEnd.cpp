#include "adapters/sqlite/ReadToEnd.h"

#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace koru {
namespace {

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

}  // namespace

Recordset ReadToEnd(SqliteStatement& statement) {
  const ResetAtEnd reset(statement);
  // Step first: if the tables have changed, the first step prepares the statement again.
  bool hasRow = statement.Step();
  const int columns = statement.ColumnCount();
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column) names.push_back(statement.ColumnName(column));
  Recordset records(std::move(names));
  for (; hasRow; hasRow = statement.Step()) AppendRow(records, statement, columns);
  if (!statement.IsReadOnly()) records.SetAffectedRows(statement.ChangedRows());
  return records;
}

}  // namespace koru
