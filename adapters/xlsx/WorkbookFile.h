#pragma once

#include <string>
#include <vector>

namespace koru {

/// The texts of a sheet, row by row; rows may differ in length.
using SheetTexts = std::vector<std::vector<std::string>>;

/// Writes `texts` as the only sheet of a new workbook at `path`, named `sheetName`: right to left, the first
/// row bold and frozen, all cells of type text. Invalid UTF-8 bytes become U+FFFD. Overwrites an existing
/// file. Returns an empty text on success, otherwise the reason; a partial file may remain then.
[[nodiscard]] std::string WriteWorkbook(const std::string& path, const std::string& sheetName,
                                        const SheetTexts& texts);

}  // namespace koru
