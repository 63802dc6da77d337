#include "tests/support/DumpTables.h"

#include <algorithm>
#include <vector>

#include "database/sqlserver/SqlServerSchema.h"
#include "services/FixQuote.h"

namespace koru::test {
namespace {

std::string FieldText(const Value& value) {
  if (value.IsNull()) return "NULL";
  return value.IsText() ? "'" + FixQuote(value.Text()) + "'" : value.Text();
}

/// `Column=value, Column=value` of every record. What the server computes by itself is left out: no other
/// database has it.
std::vector<std::string> RowTexts(Recordset records) {
  std::vector<std::string> rows;
  for (; !records.AtEnd(); records.MoveNext()) {
    std::string row;
    for (std::size_t column = 0; column < records.Columns().size(); ++column) {
      const std::string& name = records.Columns()[column];
      if (name == "TrimmedBarcode") continue;
      row += (row.empty() ? "" : ", ") + name + "=" + FieldText(records.Field(column));
    }
    rows.push_back(std::move(row));
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace

std::string DumpTables(Database& database) {
  std::string dump;
  std::vector<std::string> tables = SuiteTables();
  std::sort(tables.begin(), tables.end());
  for (const std::string& table : tables) {
    const std::vector<std::string> rows = RowTexts(database.Open(SqlText("select * from ") + SqlName(table)));
    for (const std::string& row : rows) dump += table + ": " + row + "\n";
  }
  return dump;
}

}  // namespace koru::test
