#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "lines/LineColumns.h"
#include "platform/ports/TableFiles.h"

namespace koru {

/// The counts that can come from a file: the columns of the grid from LineColumn::FirstCounting to
/// AcceptedCounting.
inline constexpr std::size_t kImportedCounts = 4;
[[nodiscard]] constexpr int GridColumnOf(std::size_t count) {
  return LineColumn::FirstCounting + static_cast<int>(count);
}

/// Which columns of a table are read, from 0.
struct ImportColumns {
  static constexpr int kNone = -1;

  std::size_t firstRow = 0;  ///< the rows of the table before this one are titles
  int barcode = kNone;
  int code = kNone;
  std::array<int, kImportedCounts> counts{kNone, kNone, kNone, kNone};

  friend bool operator==(const ImportColumns&, const ImportColumns&) = default;
};

/// Finds the columns by their titles, which people write in many ways: any letters of the Persian keyboard,
/// blanks, half-spaces and digits. The row of titles is the one of the first ten that names most of them; a
/// table without titles begins with its first row if that has a number, otherwise with the second, and no
/// column is chosen. A column that is called just `count` or `quantity` is the first count.
[[nodiscard]] ImportColumns FindColumns(const FileTable& table);

/// What a user reads for each column of the table: its title, and its letters where the title is empty or
/// that of another column as well.
[[nodiscard]] std::vector<std::string> ColumnNames(const FileTable& table, std::size_t firstRow);

/// The text of a cell; empty where the row has no such cell.
[[nodiscard]] const std::string& CellOf(const FileTable::Row& row, int column);

}  // namespace koru
