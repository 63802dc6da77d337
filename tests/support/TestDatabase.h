#pragma once

#include <functional>
#include <string>

#include "database/scratch/ScratchDatabase.h"
#include "tests/support/DumpTables.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// A fresh database with the suite's tables and no rows: an embedded file, or, where KORU_SQLSERVER holds a
/// connection text, the scratch database of that server, so that one suite of tests covers both. A server
/// has one scratch database: there, a second one of these takes the first one's rows away. Statements are in
/// the dialect of the suite's server.
class TestDatabase {
 public:
  /// What a test works on.
  enum class Kind {
    File,  ///< always an embedded file: for tests of the file itself
    FileOrServer
  };
  explicit TestDatabase(Kind kind = Kind::FileOrServer);
  /// One that begins with the rows of that embedded database, and may be it.
  explicit TestDatabase(const std::string& file);

  /// What a host would hand to the component.
  [[nodiscard]] const std::string& ConnectionText() const { return trial_.ConnectionText(); }
  /// Whether it is a server's: there every statement reaches the disk by itself.
  [[nodiscard]] bool IsOnServer() const { return trial_.IsOnServer(); }
  /// What makes the component's connections.
  [[nodiscard]] DatabaseConnector& Connector() { return trial_.Connector(); }

  /// Whether letters and digits of Persian and Arabic keyboards are equal to it: an embedded database takes
  /// them so, a server by its collation.
  [[nodiscard]] bool TakesKeyboardsAsEqual();

  /// Runs statements that return no rows, separated by `;`.
  void Execute(const std::string& sql) { trial_.RunAll(sql); }
  /// Inserts the rows `first` to `last` into `table (column, ...)`; `values` writes one without parentheses.
  void InsertRows(const std::string& columns, int first, int last,
                  const std::function<std::string(int)>& values);
  /// The rows of one statement.
  [[nodiscard]] Recordset Open(const std::string& sql) { return trial_.Run(sql); }
  /// The first field of the first row as text; "NULL" for NULL, "none" when there is no row.
  [[nodiscard]] std::string Scalar(const std::string& sql);
  /// All rows as text: fields are joined by `|`, NULL is "NULL", every row ends in a line feed.
  [[nodiscard]] std::string Rows(const std::string& sql);
  /// All rows of all tables; see DumpTables.
  [[nodiscard]] std::string Dump() { return DumpTables(trial_.Own()); }

 private:
  TemporaryFolder folder_;
  ScratchDatabase trial_;
};

}  // namespace koru::test
