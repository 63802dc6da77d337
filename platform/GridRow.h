#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The texts of one row of a grid, kept one behind the other in a single piece of memory: a full counting has
/// half a million cells, most of them a few characters long.
class GridRow {
 public:
  explicit GridRow(std::size_t cols = 0) : ends_(cols, 0) {}

  [[nodiscard]] std::string_view Text(std::size_t col) const {
    const std::size_t begin = Begin(col);
    return std::string_view(texts_).substr(begin, ends_.at(col) - begin);
  }

  void SetText(std::size_t col, std::string_view text) {
    const std::size_t begin = Begin(col);
    const std::size_t oldSize = ends_.at(col) - begin;
    texts_.replace(begin, oldSize, text);
    if (text.size() == oldSize) return;
    for (std::size_t i = col; i < ends_.size(); ++i) {
      ends_[i] = static_cast<std::uint32_t>(ends_[i] + text.size() - oldSize);
    }
  }

  [[nodiscard]] std::uint32_t BackColor() const { return backColor_; }
  void SetBackColor(std::uint32_t color) { backColor_ = color; }

 private:
  [[nodiscard]] std::size_t Begin(std::size_t col) const { return col == 0 ? 0 : ends_.at(col - 1); }

  std::string texts_;
  std::vector<std::uint32_t> ends_;  ///< where each cell's text ends in texts_
  std::uint32_t backColor_ = 0x00FFFFFF;
};

}  // namespace koru
