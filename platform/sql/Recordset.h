#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/sql/Value.h"

namespace koru {

/// The complete result of a statement. All rows are read before the caller sees the first, so RecordCount is
/// known and the connection is free for the next statement. A new recordset is positioned on its first
/// record. A statement without a result gives a recordset without columns.
class Recordset {
 public:
  Recordset() = default;
  explicit Recordset(std::vector<std::string> columns) : columns_(std::move(columns)) {}

  [[nodiscard]] std::size_t RecordCount() const { return recordCount_; }
  [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }

  /// How many rows an insert, update or delete has written; no value where the database does not say.
  [[nodiscard]] std::optional<std::int64_t> AffectedRows() const { return affectedRows_; }

  /// Whether the position is after the last record.
  [[nodiscard]] bool AtEnd() const { return current_ >= recordCount_; }
  void MoveFirst() { current_ = 0; }
  void MoveNext() {
    if (!AtEnd()) ++current_;
  }

  /// The zero-based index of a column; names are case-insensitive. Throws DatabaseError when the column is
  /// missing.
  [[nodiscard]] std::size_t ColumnIndex(std::string_view name) const;
  /// A field of the current record. Throws DatabaseError when there is no such column or no current record.
  [[nodiscard]] Value Field(std::string_view name) const { return Field(ColumnIndex(name)); }
  [[nodiscard]] Value Field(std::size_t column) const;
  /// A field of the record with the zero-based index `record`. Throws as Field does.
  [[nodiscard]] Value FieldOf(std::size_t record, std::size_t column) const;

  // For the adapters: append fields record by record, in column order.
  void SetAffectedRows(std::int64_t rows) { affectedRows_ = rows; }
  void AppendNull();
  void AppendInteger(std::int64_t number);
  void AppendReal(double number);
  void AppendText(std::string_view text);

 private:
  /// The position of a text in texts_, which holds the texts of all records.
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
  std::optional<std::int64_t> affectedRows_;
};

}  // namespace koru
