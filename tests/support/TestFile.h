#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "tests/support/DumpTables.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// A fresh embedded database with the real schema and no rows, in a folder of its own, and a connection of
/// the test's that speaks SQLite's own dialect: for tests of what is the embedded database's alone.
class TestFile {
 public:
  TestFile();

  /// What a host would hand to the component: `Provider=SQLite;Data Source=...`.
  [[nodiscard]] std::string ConnectionText() const;
  [[nodiscard]] const std::string& File() const { return file_; }
  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

  /// Runs one or more statements that return no rows.
  void Execute(const std::string& sql) { connection_.Execute(sql); }
  /// The first field of the first row as text; "NULL" for NULL, "none" when there is no row.
  [[nodiscard]] std::string Scalar(const std::string& sql);
  /// All rows as text: fields are joined by `|`, NULL is "NULL", every row ends in a line feed.
  [[nodiscard]] std::string Rows(const std::string& sql);
  /// All rows of all tables; see DumpTables.
  [[nodiscard]] std::string Dump() const { return DumpTables(*SqliteConnector().Connect(ConnectionText())); }

 private:
  TemporaryFolder folder_;
  std::string file_;
  SqliteConnection connection_;
};

}  // namespace koru::test
