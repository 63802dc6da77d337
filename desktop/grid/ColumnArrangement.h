#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// What a user has changed about the columns of a grid. Columns are named by their number in the grid.
struct ColumnArrangement {
  std::map<int, int> widths;  ///< in pixels; the other columns are fitted
  std::vector<int> order;     ///< all columns in the order in which they are shown; empty: that of the grid

  friend bool operator==(const ColumnArrangement&, const ColumnArrangement&) = default;
};

/// The arrangement in one line, such as `3=260 6=90 | 0 1 3 2`. Empty if the user has changed nothing.
[[nodiscard]] std::string ToText(const ColumnArrangement& arrangement);

/// The arrangement that ToText wrote. A text that is damaged gives an empty one.
[[nodiscard]] ColumnArrangement ArrangementOf(std::string_view text);

/// Whether `order` has each of the columns 0 to `columns` - 1 once.
[[nodiscard]] bool IsOrderOf(const std::vector<int>& order, int columns);

}  // namespace koru
