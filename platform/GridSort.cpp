#include "platform/GridSort.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

#include "platform/Grid.h"
#include "platform/PersianText.h"
#include "platform/Text.h"

namespace koru {
namespace {

/// The number that the whole text is; none for an empty text or one with anything else in it.
std::optional<double> WholeNumber(std::string_view text) {
  text = Trim(text);
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc{} || result.ptr != text.data() + text.size())
    return std::nullopt;
  return number;
}

struct Key {
  bool isText = false;
  double number = 0;
  std::string text;
  std::size_t row = 0;

  friend bool operator<(const Key& a, const Key& b) {
    if (a.isText != b.isText) return b.isText;
    return a.isText ? a.text < b.text : a.number < b.number;
  }
};

Key MakeKey(std::string_view text, SortMode mode, std::size_t row) {
  if (mode == SortMode::GenericAscending) {
    if (const auto number = WholeNumber(text)) return {false, *number, {}, row};
  }
  return {true, 0, PersianSortKey(text), row};
}

}  // namespace

void SortRows(std::vector<GridRow>& rows, std::size_t col, SortMode mode) {
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (std::size_t row = 1; row < rows.size(); ++row) keys.push_back(MakeKey(rows[row].Text(col), mode, row));
  std::stable_sort(keys.begin(), keys.end());

  std::vector<std::uint32_t> colors;
  colors.reserve(rows.size());
  for (const GridRow& row : rows) colors.push_back(row.BackColor());

  std::vector<GridRow> sorted;
  sorted.reserve(rows.size());
  if (!rows.empty()) sorted.push_back(std::move(rows.front()));
  for (const Key& key : keys) sorted.push_back(std::move(rows[key.row]));
  for (std::size_t row = 0; row < sorted.size(); ++row) sorted[row].SetBackColor(colors[row]);
  rows = std::move(sorted);
}

}  // namespace koru
