#include "platform/controls/GridRow.h"

#include <cstring>
#include <stdexcept>

namespace koru {
namespace {

using Block = std::unique_ptr<std::uint32_t[]>;

Block NewBlock(std::size_t cols, std::size_t characters) {
  constexpr std::size_t kPlace = sizeof(std::uint32_t);
  return std::make_unique_for_overwrite<std::uint32_t[]>(1 + cols + (characters + kPlace - 1) / kPlace);
}

/// Returns the end of the copy.
char* Copy(char* to, std::string_view text) {
  if (!text.empty()) std::memmove(to, text.data(), text.size());
  return to + text.size();
}

}  // namespace

GridRow::GridRow(std::size_t cols) : block_(std::make_unique<std::uint32_t[]>(1 + cols)) {
  block_[0] = static_cast<std::uint32_t>(cols);
}

GridRow::GridRow(std::span<const std::string> texts) {
  std::size_t characters = 0;
  for (const std::string& text : texts) characters += text.size();
  block_ = NewBlock(texts.size(), characters);
  block_[0] = static_cast<std::uint32_t>(texts.size());
  char* const begin = Texts();
  char* at = begin;
  for (std::size_t col = 0; col < texts.size(); ++col) {
    at = Copy(at, texts[col]);
    block_[col + 1] = static_cast<std::uint32_t>(at - begin);
  }
}

void GridRow::SetText(std::size_t col, std::string_view text) {
  const std::size_t end = End(col);
  const std::size_t begin = Begin(col);
  if (text.size() == end - begin) {
    Copy(Texts() + begin, text);
    return;
  }
  const std::size_t cols = Cols();
  const std::string_view all(Texts(), block_[cols]);
  Block changed = NewBlock(cols, all.size() - (end - begin) + text.size());
  std::memcpy(changed.get(), block_.get(), (cols + 1) * sizeof(std::uint32_t));
  for (std::size_t i = col + 1; i <= cols; ++i)
    changed[i] = static_cast<std::uint32_t>(changed[i] + text.size() - (end - begin));
  char* at = reinterpret_cast<char*>(&changed[cols + 1]);
  at = Copy(at, all.substr(0, begin));
  at = Copy(at, text);
  Copy(at, all.substr(end));
  block_ = std::move(changed);
}

void GridRow::ThrowNoSuchColumn() { throw std::out_of_range("a grid has no such column"); }

}  // namespace koru
