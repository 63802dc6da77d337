#pragma once

#include <string>
#include <vector>

#include "platform/controls/Grid.h"

namespace koru::bench {

/// All texts of the grid, row by row.
[[nodiscard]] std::vector<std::vector<std::string>> TextsOf(const Grid& grid);

/// Writes the texts with only the workbook library's constant-memory mode. Throws std::runtime_error.
void WriteWorkbookByHand(const std::string& path, const std::vector<std::vector<std::string>>& texts);

}  // namespace koru::bench
