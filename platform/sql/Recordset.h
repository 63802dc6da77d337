#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/sql/Value.h"

namespace koru {

/// The rows that a statement returned, read to the end before the caller sees the first: nothing on the
/// server is left half read, and RecordCount is known. A new recordset stands on its first record. Statements
/// that return no rows give a recordset without columns.
class Recordset {
 public:
  Recordset() = default;
  explicit Recordset(std::vector<std::string> columns) : columns_(std::move(columns)) {}

  [[nodiscard]] std::size_t RecordCount() const { return recordCount_; }
  [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }

  /// Whether the current record lies behind the last one.
  [[nodiscard]] bool AtEnd() const { return current_ >= recordCount_; }
  void MoveFirst() { current_ = 0; }
  void MoveNext() {
    if (!AtEnd()) ++current_;
  }

  /// The place of a column, from 0; its name is compared regardless of case. Throws DatabaseError when there
  /// is none.
  [[nodiscard]] std::size_t ColumnIndex(std::string_view name) const;
  /// A field of the current record; throws DatabaseError when there is no such column or no current record.
  [[nodiscard]] Value Field(std::string_view name) const { return Field(ColumnIndex(name)); }
  [[nodiscard]] Value Field(std::size_t column) const;
  /// A field of any record, counted from 0; throws as Field does.
  [[nodiscard]] Value FieldOf(std::size_t record, std::size_t column) const;

  // For the adapters: fields are appended record by record, in the order of the columns.
  void AppendNull();
  void AppendInteger(std::int64_t number);
  void AppendReal(double number);
  void AppendText(std::string_view text);

 private:
  /// A text as its place in texts_, which keeps the texts of all records one behind the other.
  struct TextPlace {
    std::size_t begin = 0;
    std::size_t size = 0;
  };
  using StoredField = std::variant<std::monostate, std::int64_t, double, TextPlace>;
  void Append(StoredField field);

  std::vector<std::string> columns_;
  std::vector<StoredField> fields_;
  std::string texts_;
  std::size_t recordCount_ = 0;
  std::size_t current_ = 0;
};

}  // namespace koru
