#pragma once

#include <chrono>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/sql/DatabaseError.h"

struct sqlite3;
struct sqlite3_stmt;

namespace koru {

/// What a result code of SQLite, extended or not, means for the user.
[[nodiscard]] DatabaseCause CauseOf(int code);

/// A prepared statement in SQLite's own dialect. It must not outlive its connection. Everything that fails
/// throws DatabaseError with SQLite's text, its extended code and the statement.
class SqliteStatement {
 public:
  explicit SqliteStatement(sqlite3_stmt* prepared) : statement_(prepared) {}

  /// Parameters are numbered from 1 and keep their value until they are bound again.
  void Bind(int parameter, std::integral auto number) {
    BindInteger(parameter, static_cast<std::int64_t>(number));
  }
  void Bind(int parameter, double number);
  /// The text is copied.
  void Bind(int parameter, std::string_view text);
  /// NULL.
  void Bind(int parameter, std::nullptr_t);
  /// An object for the functions of this connection; it must outlive the last run of the statement with it.
  /// `type` is a string constant.
  void BindPointer(int parameter, const void* object, const char* type);

  /// Moves to the next row; returns false if there is none. A statement that returns no rows is complete
  /// after one step.
  bool Step();
  /// Prepares for the next run. Does not throw: Step has reported any failure.
  void Reset() noexcept;
  /// Steps once and resets; for statements that return no rows.
  void Run();

  /// Whether it changes nothing in the file.
  [[nodiscard]] bool IsReadOnly() const;

  /// How many rows the connection's last insert, update or delete has written.
  [[nodiscard]] std::int64_t ChangedRows() const;

  /// Columns count from 0. The values are those of the row that the last Step moved to.
  [[nodiscard]] int ColumnCount() const;
  [[nodiscard]] std::string ColumnName(int column) const;
  /// SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
  [[nodiscard]] int ColumnType(int column) const;
  [[nodiscard]] bool IsNull(int column) const;
  [[nodiscard]] std::int64_t Integer(int column) const;  ///< 0 for NULL
  [[nodiscard]] double Real(int column) const;           ///< 0 for NULL
  /// Valid until the next Step or Reset; empty for NULL.
  [[nodiscard]] std::string_view Text(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept;
  };
  void BindInteger(int parameter, std::int64_t number);
  void Check(int result) const;

  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// A connection to one database file, with the collation KORU, the `like` of the suite's server and
/// koru_key_rank (RankedKeySet.h). Used by one thread.
class SqliteConnection {
 public:
  enum class Mode {
    Existing,  ///< the file must exist; opening it changes nothing
    Create     ///< a missing file is created
  };

  /// `path` is UTF-8. `busyTimeout` is how long a statement waits for another connection's lock before it
  /// fails. Throws DatabaseError.
  SqliteConnection(const std::string& path, Mode mode, std::chrono::milliseconds busyTimeout);

  /// Runs one or more statements that return no rows, in SQLite's own dialect. Throws DatabaseError at the
  /// first that fails.
  void Execute(const std::string& sql);

  /// Throws DatabaseError if `sql` is not one statement.
  [[nodiscard]] SqliteStatement Prepare(std::string_view sql);

  /// The first column of the first row as an integer; 0 if there is no row.
  std::int64_t Number(std::string_view sql);

  /// For functions of SQLite on two connections or with a callback.
  [[nodiscard]] sqlite3* Handle() const { return connection_.get(); }
  /// Whether a transaction is open.
  [[nodiscard]] bool InTransaction() const;
  /// Releases the page cache, except for pages in use.
  void ReleasePages() const;
  /// The path of the file in full.
  [[nodiscard]] std::string File() const;
  /// Whether the file was deleted or moved, or another one put in its place.
  [[nodiscard]] bool HasMoved() const;
  /// Copies the write-ahead log into the file as far as no other connection is in the way, and never waits
  /// for one. Costs some microseconds when there is nothing to copy.
  void Checkpoint() noexcept;
  /// The path of the file's write-ahead log, which exists once the connection has read; empty if the file
  /// uses none.
  [[nodiscard]] std::string WriteAheadLog();
  /// Whether the file is read-only.
  [[nodiscard]] bool IsReadOnly() const;
  /// Whether `table` is a table (not a view) with a column of that name; case does not matter.
  [[nodiscard]] bool HasColumn(const std::string& table, const std::string& column) const;
  /// Whether that column alone is the table's integer primary key.
  [[nodiscard]] bool IsIntegerKey(const std::string& table, const std::string& column);
  /// Whether the column is declared INTEGER.
  [[nodiscard]] bool IsIntegerColumn(const std::string& table, const std::string& column) const;

 private:
  struct Close {
    void operator()(sqlite3* connection) const noexcept;
  };
  [[noreturn]] void Fail(std::string_view statement) const;

  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace koru
