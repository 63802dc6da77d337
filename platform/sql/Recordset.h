#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
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
  /// Moves to the next record as MoveNext does, and frees the memory of those before it: they cannot be read
  /// again. For long lists, which are then not held beside what is made of them.
  void MoveNextAndForget();

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
  /// The records of a block: long lists grow without being copied, and are freed piece by piece.
  static constexpr std::size_t kRecordsInBlock = 256;
  enum class Kind : char { Integer, Real, Text };
  /// Consecutive records. A field is its kind and its bytes; NULL has neither.
  struct Block {
    std::string bytes;
    std::vector<std::uint32_t> ends;  ///< of the fields, in `bytes`
  };

  /// The block that the next field is appended to.
  Block& BlockToAppendTo();
  void Append(Kind kind, std::string_view bytes);
  void EndField(Block& block);

  std::vector<std::string> columns_;
  std::vector<Block> blocks_;
  std::size_t fields_ = 0;  ///< of the record that is being appended
  std::size_t recordCount_ = 0;
  std::size_t current_ = 0;
  std::optional<std::int64_t> affectedRows_;
};

}  // namespace koru
