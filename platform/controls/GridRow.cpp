#include "platform/controls/GridRow.h"

#include <limits>
#include <stdexcept>

namespace koru {
namespace {

/// Returns the end of the copy.
char* Copy(char* to, std::string_view text) {
  if (!text.empty()) std::memmove(to, text.data(), text.size());
  return to + text.size();
}

std::size_t LengthOf(std::span<const std::string> texts) {
  std::size_t characters = 0;
  for (const std::string& text : texts) characters += text.size();
  return characters;
}

}  // namespace

/// A row with room for these characters; the offsets of its texts are not set.
GridRow::GridRow(std::size_t cols, std::size_t characters) {
  const bool isLong = characters > std::numeric_limits<unsigned char>::max();
  const std::size_t offsets = cols * (isLong ? sizeof(std::uint32_t) : 1);
  block_ = std::make_unique_for_overwrite<char[]>(sizeof(Head) + offsets + characters);
  const Head head{static_cast<std::uint32_t>(cols) & 0x7FFFFFFFU, isLong};
  std::memcpy(block_.get(), &head, sizeof head);
}

GridRow::GridRow(std::size_t cols) : GridRow(cols, 0) {
  for (std::size_t col = 0; col < cols; ++col) SetEnd(col, 0);
}

GridRow::GridRow(std::span<const std::string> texts) : GridRow(texts.size(), LengthOf(texts)) {
  char* const begin = Texts();
  char* at = begin;
  for (std::size_t col = 0; col < texts.size(); ++col) {
    at = Copy(at, texts[col]);
    SetEnd(col, static_cast<std::size_t>(at - begin));
  }
}

void GridRow::SetText(std::size_t col, std::string_view text) {
  const std::string_view before = Text(col);
  if (text.size() == before.size()) {
    Copy(Texts() + (before.data() - Texts()), text);
    return;
  }
  const std::size_t cols = Cols();
  const std::string_view all(Texts(), End(cols - 1));
  const auto begin = static_cast<std::size_t>(before.data() - all.data());
  const std::size_t end = begin + before.size();
  GridRow changed(cols, all.size() - before.size() + text.size());
  for (std::size_t i = 0; i < cols; ++i)
    changed.SetEnd(i, i < col ? End(i) : End(i) - before.size() + text.size());
  char* at = changed.Texts();
  at = Copy(at, all.substr(0, begin));
  at = Copy(at, text);
  Copy(at, all.substr(end));
  *this = std::move(changed);
}

void GridRow::SetEnd(std::size_t col, std::size_t end) {
  char* const offsets = block_.get() + sizeof(Head);
  if (TheHead().isLong) {
    const auto offset = static_cast<std::uint32_t>(end);
    std::memcpy(offsets + col * sizeof offset, &offset, sizeof offset);
  } else {
    offsets[col] = static_cast<char>(static_cast<unsigned char>(end));
  }
}

void GridRow::ThrowNoSuchColumn() { throw std::out_of_range("a grid has no such column"); }

}  // namespace koru
