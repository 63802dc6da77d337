#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace koru {

/// The texts of one row of a grid in a single memory block of exactly the size that they need: a full
/// counting has half a million cells, most of them a few characters long. A column outside the row throws
/// std::out_of_range.
class GridRow {
 public:
  /// A row of empty cells.
  explicit GridRow(std::size_t cols = 0);
  /// A row of these texts, one per column.
  explicit GridRow(std::span<const std::string> texts);

  /// Valid until the row changes.
  [[nodiscard]] std::string_view Text(std::size_t col) const {
    const std::size_t end = End(col);
    const std::size_t begin = Begin(col);
    return {Texts() + begin, end - begin};
  }
  /// `text` may be one of the row's own.
  void SetText(std::size_t col, std::string_view text);

 private:
  [[nodiscard]] std::size_t Cols() const { return block_[0]; }
  [[nodiscard]] std::size_t Begin(std::size_t col) const { return col == 0 ? 0 : block_[col]; }
  [[nodiscard]] std::size_t End(std::size_t col) const {
    if (col >= Cols()) ThrowNoSuchColumn();
    return block_[col + 1];
  }
  [[nodiscard]] const char* Texts() const { return reinterpret_cast<const char*>(&block_[Cols() + 1]); }
  [[nodiscard]] char* Texts() { return reinterpret_cast<char*>(&block_[Cols() + 1]); }
  [[noreturn]] static void ThrowNoSuchColumn();

  /// The number of columns, the end offset of each cell's text, the concatenated texts.
  std::unique_ptr<std::uint32_t[]> block_;
};

}  // namespace koru
