#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/text/Date.h"

namespace koru::sample {

/// A value of one column, as SQLite binds it.
using ColumnValue = std::variant<std::nullptr_t, std::int64_t, double, std::string>;

inline ColumnValue ToColumnValue(std::integral auto number) { return static_cast<std::int64_t>(number); }
inline ColumnValue ToColumnValue(double number) { return number; }
inline ColumnValue ToColumnValue(std::string_view text) { return std::string(text); }
inline ColumnValue ToColumnValue(const Date& date) { return IsoText(date); }
/// NULL when there is no value.
template <typename V>
ColumnValue ToColumnValue(const std::optional<V>& value) {
  return value ? ToColumnValue(*value) : ColumnValue(nullptr);
}

/// A column's name with its value in one row.
struct NamedValue {
  template <typename V>
  NamedValue(std::string_view columnName, const V& columnValue)
      : column(columnName), value(ToColumnValue(columnValue)) {}

  std::string_view column;
  ColumnValue value;
};

/// Writes rows of one table with one prepared statement. The first row decides the statement's columns; all
/// rows of a writer have the same ones in the same order. It must not outlive its connection.
class RowWriter {
 public:
  static RowWriter Inserts(SqliteConnection& connection, std::string table);
  /// Updates existing rows. The first column of a row is the key, the others are set.
  static RowWriter Updates(SqliteConnection& connection, std::string table);

  /// Throws DatabaseError, and std::logic_error for other columns than those of the first row.
  void Write(std::initializer_list<NamedValue> row);

 private:
  enum class Kind { Insert, Update };
  RowWriter(SqliteConnection& connection, Kind kind, std::string table);
  void Prepare(std::initializer_list<NamedValue> row);

  SqliteConnection& connection_;
  Kind kind_;
  std::string table_;
  std::vector<std::string> columns_;
  std::optional<SqliteStatement> statement_;
};

}  // namespace koru::sample
