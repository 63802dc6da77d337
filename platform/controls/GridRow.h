#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
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
    if (col >= Cols()) ThrowNoSuchColumn();
    const std::size_t begin = col == 0 ? 0 : End(col - 1);
    return {Texts() + begin, End(col) - begin};
  }
  /// `text` may be one of the row's own.
  void SetText(std::size_t col, std::string_view text);

 private:
  /// What a block begins with.
  struct Head {
    std::uint32_t cols : 31;
    std::uint32_t isLong : 1;  ///< the offsets have four bytes, else one
  };

  GridRow(std::size_t cols, std::size_t characters);
  [[nodiscard]] Head TheHead() const {
    Head head;
    std::memcpy(&head, block_.get(), sizeof head);
    return head;
  }
  [[nodiscard]] std::size_t Cols() const { return TheHead().cols; }
  /// The end offset of a cell's text.
  [[nodiscard]] std::size_t End(std::size_t col) const {
    const char* const offsets = block_.get() + sizeof(Head);
    if (!TheHead().isLong) return static_cast<unsigned char>(offsets[col]);
    std::uint32_t end = 0;
    std::memcpy(&end, offsets + col * sizeof end, sizeof end);
    return end;
  }
  void SetEnd(std::size_t col, std::size_t end);
  [[nodiscard]] std::size_t TextsBegin() const {
    return sizeof(Head) + Cols() * (TheHead().isLong ? sizeof(std::uint32_t) : 1);
  }
  [[nodiscard]] const char* Texts() const { return block_.get() + TextsBegin(); }
  [[nodiscard]] char* Texts() { return block_.get() + TextsBegin(); }
  [[noreturn]] static void ThrowNoSuchColumn();

  /// The head, the end offset of each cell's text, the concatenated texts.
  std::unique_ptr<char[]> block_;
};

}  // namespace koru
