#include "platform/GridSort.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
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
  if (!std::isfinite(number)) return std::nullopt;  // "Inf" and "NaN" are names of goods
  return number;
}

/// The keys of a column's texts. The characters of all of them stand one behind the other, so that sorting
/// moves nothing but a few numbers.
class SortKeys {
 public:
  struct Key {
    bool isText = false;
    double number = 0;
    std::uint64_t lead = 0;  ///< the first eight characters
    std::size_t begin = 0;   ///< of the text's key in characters_
    std::size_t size = 0;
    std::size_t row = 0;
  };

  SortKeys(const std::vector<GridRow>& rows, std::size_t col, SortMode mode) {
    keys_.reserve(rows.size());
    for (std::size_t row = 1; row < rows.size(); ++row)
      keys_.push_back(MakeKey(rows[row].Text(col), mode, row));
  }

  /// Numbers before texts; equal ones as they were.
  const std::vector<Key>& Sorted() {
    std::stable_sort(keys_.begin(), keys_.end(), [this](const Key& a, const Key& b) {
      if (a.isText != b.isText) return b.isText;
      if (!a.isText) return a.number < b.number;
      return a.lead != b.lead ? a.lead < b.lead : TextOf(a) < TextOf(b);
    });
    return keys_;
  }

 private:
  Key MakeKey(std::string_view text, SortMode mode, std::size_t row) {
    if (mode == SortMode::GenericAscending) {
      if (const auto number = WholeNumber(text)) return {false, *number, 0, 0, 0, row};
    }
    const std::string key = PersianSortKey(text);
    std::uint64_t lead = 0;
    for (std::size_t i = 0; i < sizeof lead; ++i) {
      lead = lead << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    characters_ += key;
    return {true, 0, lead, characters_.size() - key.size(), key.size(), row};
  }
  [[nodiscard]] std::string_view TextOf(const Key& key) const {
    return std::string_view(characters_).substr(key.begin, key.size);
  }

  std::vector<Key> keys_;
  std::string characters_;
};

}  // namespace

void SortRows(std::vector<GridRow>& rows, std::size_t col, SortMode mode) {
  SortKeys keys(rows, col, mode);
  std::vector<std::uint32_t> colors;
  colors.reserve(rows.size());
  for (const GridRow& row : rows) colors.push_back(row.BackColor());

  std::vector<GridRow> sorted;
  sorted.reserve(rows.size());
  if (!rows.empty()) sorted.push_back(std::move(rows.front()));
  for (const SortKeys::Key& key : keys.Sorted()) sorted.push_back(std::move(rows[key.row]));
  for (std::size_t row = 0; row < sorted.size(); ++row) sorted[row].SetBackColor(colors[row]);
  rows = std::move(sorted);
}

}  // namespace koru
