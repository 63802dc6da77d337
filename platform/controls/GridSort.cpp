#include "platform/controls/GridSort.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls/Grid.h"
#include "platform/text/PersianText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

bool IsDescending(SortMode mode) {
  return mode == SortMode::GenericDescending || mode == SortMode::TextNoCaseDescending;
}

/// The text as a number; none if it is empty or contains anything else.
std::optional<double> WholeNumber(std::string_view text) {
  text = Trim(text);
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc{} || result.ptr != text.data() + text.size())
    return std::nullopt;
  if (!std::isfinite(number)) return std::nullopt;  // "Inf" and "NaN" are names of goods
  return number;
}

/// The sort keys of a column's texts, numbers separate from other texts. The characters of all keys are
/// concatenated, so that sorting moves only a few integers for each row.
class SortKeys {
 public:
  SortKeys(const std::vector<GridRow>& rows, std::size_t col, SortMode mode)
      : descending_(IsDescending(mode)) {
    numbers_.reserve(rows.size());
    for (std::size_t row = 1; row < rows.size(); ++row) {
      const std::string_view text = rows[row].Text(col);
      const bool generic = mode == SortMode::GenericAscending || mode == SortMode::GenericDescending;
      const auto number = generic ? WholeNumber(text) : std::optional<double>();
      if (number) {
        numbers_.push_back({*number, row});
      } else {
        AddText(text, row);
      }
    }
  }

  /// The row indexes in sorted order: the header's, then numbers before texts, equal ones in their previous
  /// order. Empty texts are the last in descending order.
  std::vector<std::size_t> Sorted() {
    std::stable_sort(numbers_.begin(), numbers_.end(), [this](const Number& a, const Number& b) {
      return descending_ ? b.value < a.value : a.value < b.value;
    });
    std::stable_sort(texts_.begin(), texts_.end(), [this](const Text& a, const Text& b) {
      return descending_ ? IsBefore(b, a) : IsBefore(a, b);
    });
    std::vector<std::size_t> rows{0};
    rows.reserve(1 + numbers_.size() + texts_.size());
    for (const Number& number : numbers_) rows.push_back(number.row);
    for (const Text& text : texts_) rows.push_back(text.row);
    return rows;
  }

 private:
  struct Number {
    double value = 0;
    std::size_t row = 0;
  };
  struct Text {
    std::uint64_t lead = 0;  ///< the first eight characters
    std::size_t begin = 0;   ///< in characters_
    std::size_t size = 0;
    std::size_t row = 0;
  };

  void AddText(std::string_view text, std::size_t row) {
    const std::size_t begin = characters_.size();
    AppendPersianSortKey(characters_, text);
    const std::string_view key = std::string_view(characters_).substr(begin);
    std::uint64_t lead = 0;
    for (std::size_t i = 0; i < sizeof lead; ++i) {
      lead = lead << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    texts_.push_back({lead, begin, key.size(), row});
  }
  [[nodiscard]] bool IsBefore(const Text& a, const Text& b) const {
    return a.lead != b.lead ? a.lead < b.lead : CharactersOf(a) < CharactersOf(b);
  }
  [[nodiscard]] std::string_view CharactersOf(const Text& text) const {
    return std::string_view(characters_).substr(text.begin, text.size);
  }

  bool descending_;
  std::vector<Number> numbers_;
  std::vector<Text> texts_;
  std::string characters_;
};

}  // namespace

std::vector<std::size_t> SortRows(std::vector<GridRow>& rows, std::size_t col, SortMode mode) {
  std::vector<std::size_t> order = SortKeys(rows, col, mode).Sorted();
  ReorderRows(rows, order);
  return order;
}

void ReorderRows(std::vector<GridRow>& rows, const std::vector<std::size_t>& order) {
  std::vector<GridRow> reordered;
  reordered.reserve(rows.size());
  for (const std::size_t row : order) reordered.push_back(std::move(rows[row]));
  rows = std::move(reordered);
}

}  // namespace koru
