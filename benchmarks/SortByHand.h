#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Grid.h"

namespace koru::bench {

/// Keys of a column with the rows that they belong to, in the order of the rows.
template <class Key, class MakeKey>
std::vector<std::pair<Key, int>> KeysOf(const Grid& grid, int col, const MakeKey& makeKey) {
  std::vector<std::pair<Key, int>> keys;
  for (int row = 1; row < grid.Rows(); ++row) keys.emplace_back(makeKey(grid.TextMatrix(row, col)), row);
  return keys;
}

/// Sorts ready keys and returns the row that comes first.
template <class Key>
int SortReady(std::vector<std::pair<Key, int>> keys) {
  std::stable_sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  return keys.empty() ? 0 : keys.front().second;
}

}  // namespace koru::bench
