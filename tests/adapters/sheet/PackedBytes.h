#pragma once

#include <string>
#include <utility>
#include <vector>

namespace koru::test {

/// The parts of a ZIP file: names and contents.
using Parts = std::vector<std::pair<std::string, std::string>>;

/// The bytes of a ZIP file with these parts, compressed or stored as they are.
[[nodiscard]] std::string PackedBytes(const Parts& parts, bool compressed = true);

/// The parts of a workbook of one sheet. `rows` is the content of its <sheetData>, `texts` that of its shared
/// texts.
[[nodiscard]] Parts WorkbookParts(const std::string& rows, const std::string& texts = {});

}  // namespace koru::test
