#pragma once

#include <chrono>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace koru {

/// A prepared statement in SQLite's own dialect. It must not outlive its connection. Everything that fails
/// throws DatabaseError with SQLite's text, its extended code and the statement.
class SqliteStatement {
 public:
  explicit SqliteStatement(sqlite3_stmt* prepared) : statement_(prepared) {}

  /// Parameters count from 1 and keep their value until they are bound anew.
  void Bind(int parameter, std::integral auto number) {
    BindInteger(parameter, static_cast<std::int64_t>(number));
  }
  void Bind(int parameter, double number);
  /// The text is copied.
  void Bind(int parameter, std::string_view text);
  /// NULL.
  void Bind(int parameter, std::nullptr_t);
  /// An object that only functions of this connection can see; it must stay until the parameter is bound anew
  /// or the statement is not run any more. `type` is a constant.
  void BindPointer(int parameter, const void* object, const char* type);

  /// Moves to the next row; false when there is none. A statement that returns no rows is done after one
  /// step.
  bool Step();
  /// Ready to run again from its beginning. Does not throw: what failed was reported by Step.
  void Reset() noexcept;
  /// Steps once and resets; for statements that return no rows.
  void Run();

  /// Whether running it changes nothing in the file.
  [[nodiscard]] bool IsReadOnly() const;

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

/// A connection to one database file, which knows the collation KORU, compares `like` as the suite's server
/// does, and looks up KeyRanks. Used by one thread.
class SqliteConnection {
 public:
  enum class Mode {
    Existing,  ///< the file must be there; opening it changes nothing
    Create     ///< the file is made when it is not there
  };

  /// `path` is UTF-8. `busyTimeout` is how long a statement waits for another connection's lock before it
  /// fails. Throws DatabaseError.
  SqliteConnection(const std::string& path, Mode mode, std::chrono::milliseconds busyTimeout);

  /// Runs one or more statements that return no rows, in SQLite's own dialect. Throws DatabaseError at the
  /// first that fails.
  void Execute(const std::string& sql);

  /// Throws DatabaseError when `sql` is not one statement.
  [[nodiscard]] SqliteStatement Prepare(std::string_view sql);

  /// The first column of the first row as a whole number; 0 when there is no row.
  std::int64_t Number(std::string_view sql);

  /// Whether statements run in a transaction at this moment.
  [[nodiscard]] bool InTransaction() const;
  /// Gives the memory back that pages of the file are kept in, but for those in use.
  void ReleasePages() const;
  /// The path of the file in full.
  [[nodiscard]] std::string File() const;
  /// Whether the file was deleted or moved, or another one put in its place.
  [[nodiscard]] bool HasMoved() const;
  /// The path of the file's write-ahead log, which is there while the connection has read; empty when the
  /// file has none.
  [[nodiscard]] std::string WriteAheadLog();
  /// Whether the file can only be read.
  [[nodiscard]] bool IsReadOnly() const;
  /// Whether `table` is a table (not a view) with a column of that name, regardless of case.
  [[nodiscard]] bool HasColumn(const std::string& table, const std::string& column) const;
  /// Whether that column by itself is the table's whole-number primary key.
  [[nodiscard]] bool IsIntegerKey(const std::string& table, const std::string& column);
  /// Whether the column of a table is declared to hold whole numbers.
  [[nodiscard]] bool IsIntegerColumn(const std::string& table, const std::string& column) const;
  /// Whether an index leads with `ltrim(rtrim(column))` and none, nor the primary key, with the column
  /// itself.
  [[nodiscard]] bool HasTrimmedIndexOnly(const std::string& table, const std::string& column);

 private:
  struct Close {
    void operator()(sqlite3* connection) const noexcept;
  };
  /// Whether the query, given the two names, finds a row.
  bool Finds(std::string_view query, const std::string& table, const std::string& column);
  [[noreturn]] void Fail(std::string_view statement) const;

  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace koru
