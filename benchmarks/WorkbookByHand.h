#pragma once

#include <string>
#include <vector>

#include "platform/controls/Grid.h"

namespace koru::bench {

/// Every text of the grid, row by row.
[[nodiscard]] std::vector<std::vector<std::string>> TextsOf(const Grid& grid);

/// Writes the texts with the workbook library's constant-memory mode, and nothing else. Throws
/// std::runtime_error.
void WriteWorkbookByHand(const std::string& path, const std::vector<std::vector<std::string>>& texts);

}  // namespace koru::bench
