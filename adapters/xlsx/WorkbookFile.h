#pragma once

#include <string>
#include <vector>

namespace koru {

/// The texts of a sheet, row by row; rows may be of different lengths.
using SheetTexts = std::vector<std::vector<std::string>>;

/// Writes the texts as the one sheet of a new workbook file at `path`: right to left, the first row bold and
/// always in sight, every cell a text whatever it looks like. Bytes that are not UTF-8 become U+FFFD. An
/// existing file is written over. Empty when all went well, else the reason; then what was written may be
/// left over.
[[nodiscard]] std::string WriteWorkbook(const std::string& path, const SheetTexts& texts);

}  // namespace koru
