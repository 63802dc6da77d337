#pragma once

#include <cstddef>
#include <vector>

#include "platform/controls/GridRow.h"

namespace koru {

enum class SortMode;

/// Orders all rows but the first by the texts of one column, ascending and stable.
void SortRows(std::vector<GridRow>& rows, std::size_t col, SortMode mode);

}  // namespace koru
