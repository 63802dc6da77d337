#pragma once

#include <cstddef>
#include <vector>

#include "platform/controls/GridRow.h"

namespace koru {

enum class SortMode;

/// Orders all rows but the first by the texts of one column; rows that compare equal keep their order.
/// Returns the index that each row had before, the first included.
std::vector<std::size_t> SortRows(std::vector<GridRow>& rows, std::size_t col, SortMode mode);

/// Moves the rows to the places that `order` gives: row i is the row that had the index order[i].
void ReorderRows(std::vector<GridRow>& rows, const std::vector<std::size_t>& order);

}  // namespace koru
