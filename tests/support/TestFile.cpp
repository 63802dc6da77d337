#include "tests/support/TestFile.h"

#include <chrono>

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

}  // namespace

TestFile::TestFile() : file_(folder_.File("test.koru")), connection_(MakeAndOpen(file_)) {}

std::string TestFile::ConnectionText() const { return EmbeddedConnectionText(file_); }

std::string TestFile::Scalar(const std::string& sql) {
  SqliteStatement statement = connection_.Prepare(sql);
  return statement.Step() ? FieldText(statement, 0) : "none";
}

std::string TestFile::Rows(const std::string& sql) {
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

}  // namespace koru::test
