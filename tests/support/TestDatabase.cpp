#include "tests/support/TestDatabase.h"

#include <cstdlib>
#include <optional>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Schema.h"

namespace koru::test {
namespace {

std::optional<std::string> AskedFor() {
  const char* const server = std::getenv("KORU_SQLSERVER");
  return server == nullptr ? std::nullopt : std::optional<std::string>(server);
}

std::string EmptyFile(std::string file) {
  CreateDatabaseFile(file, EmbeddedSchema());
  return file;
}

std::string FieldText(const Recordset& records, std::size_t column) {
  const Value value = records.Field(column);
  return value.IsNull() ? "NULL" : value.Text();
}

}  // namespace

TestDatabase::TestDatabase(Kind kind)
    : trial_(EmptyFile(folder_.File("test.koru")), kind == Kind::File ? std::nullopt : AskedFor()) {}

TestDatabase::TestDatabase(const std::string& file) : trial_(file, AskedFor()) {}

bool TestDatabase::TakesKeyboardsAsEqual() {
  Execute("insert into tblUser (ID,FullName) values (-1,'كي4')");
  const bool isFound = Scalar("select ID from tblUser where ID=-1 and FullName='کی۴'") != "none";
  Execute("delete from tblUser where ID=-1");
  return isFound;
}

void TestDatabase::InsertRows(const std::string& columns, int first, int last,
                              const std::function<std::string(int)>& values) {
  constexpr int kRowsOfStatement = 500;  // a server takes no more than 1,000
  std::string statements;
  for (int row = first; row <= last; ++row) {
    const bool isFirst = (row - first) % kRowsOfStatement == 0;
    statements += isFirst ? ";insert into " + columns + " values (" : ",(";
    statements += values(row) + ")";
  }
  Execute(statements);
}

std::string TestDatabase::Scalar(const std::string& sql) {
  const Recordset records = trial_.Run(sql);
  return records.AtEnd() ? "none" : FieldText(records, 0);
}

std::string TestDatabase::Rows(const std::string& sql) {
  std::string text;
  for (Recordset records = trial_.Run(sql); !records.AtEnd(); records.MoveNext()) {
    for (std::size_t column = 0; column < records.Columns().size(); ++column) {
      text += (column == 0 ? "" : "|") + FieldText(records, column);
    }
    text += '\n';
  }
  return text;
}

}  // namespace koru::test
