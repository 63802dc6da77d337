#include "desktop/grid/ColumnArrangement.h"

#include <algorithm>
#include <locale>
#include <sstream>

namespace koru {
namespace {

constexpr int kMaxWidth = 10'000;  ///< wider than any screen

std::istringstream WordsOf(std::string_view text) {
  std::istringstream words{std::string(text)};
  words.imbue(std::locale::classic());
  return words;
}

}  // namespace

std::string ToText(const ColumnArrangement& arrangement) {
  std::string text;
  const auto add = [&text](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
  for (const auto& [col, width] : arrangement.widths) add(std::to_string(col) + "=" + std::to_string(width));
  if (arrangement.order.empty()) return text;
  add("|");
  for (const int col : arrangement.order) add(std::to_string(col));
  return text;
}

ColumnArrangement ArrangementOf(std::string_view text) {
  const std::size_t end = std::min(text.find('|'), text.size());
  ColumnArrangement arrangement;
  std::istringstream widths = WordsOf(text.substr(0, end));
  int col = 0;
  for (int width = 0; widths >> col;) {
    if (widths.get() != '=' || !(widths >> width) || width < 1 || width > kMaxWidth) return {};
    arrangement.widths[col] = width;
  }
  if (!widths.eof()) return {};
  if (end == text.size()) return arrangement;
  std::istringstream order = WordsOf(text.substr(end + 1));
  while (order >> col) arrangement.order.push_back(col);
  if (!order.eof() || !IsOrderOf(arrangement.order, static_cast<int>(arrangement.order.size()))) return {};
  return arrangement;
}

bool IsOrderOf(const std::vector<int>& order, int columns) {
  std::vector<int> sorted = order;
  std::ranges::sort(sorted);
  if (static_cast<int>(sorted.size()) != columns) return false;
  for (int col = 0; col < columns; ++col) {
    if (sorted[static_cast<std::size_t>(col)] != col) return false;
  }
  return true;
}

}  // namespace koru
