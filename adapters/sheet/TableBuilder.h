#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/ports/TableFiles.h"

namespace koru {

// Limits of a table. A counting has at most 32,767 lines; the rest keeps a hostile file from filling the
// memory, since a small workbook can name one long text in millions of cells.
inline constexpr std::size_t kMaxTableRows = 32768;  ///< that have a text, the titles included
inline constexpr int kMaxTableColumns = 256;
inline constexpr std::size_t kMaxCellLength = 32767;  ///< in UTF-16 units, as in a spreadsheet
inline constexpr std::size_t kMaxTableBytes = std::size_t{64} << 20U;

/// Throws InputError if a text is longer than a cell may be.
void CheckCellLength(std::string_view text);

/// Collects the cells of a table, row by row, and keeps it within its limits: a cell that exceeds one throws
/// InputError with a sentence for the user. Empty cells and rows take no place.
class TableBuilder {
 public:
  /// The following cells are those of the row `number` of the file, from 1.
  void BeginRow(int number) { row_ = {number, {}}; }
  /// `column` from 0.
  void AddCell(int column, std::string_view text);
  void EndRow();

  [[nodiscard]] FileTable Take() { return std::move(table_); }

 private:
  FileTable table_;
  FileTable::Row row_;
  std::size_t bytes_ = 0;
};

}  // namespace koru
