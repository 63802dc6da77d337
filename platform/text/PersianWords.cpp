#include "platform/text/PersianWords.h"

#include <algorithm>

#include "platform/text/PersianText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr char32_t kTwoBytes = 0x800;  ///< the first character of three bytes in UTF-8

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

PersianWords::PersianWords(std::string_view typed) {
  folded_.reserve(kTwoBytes);
  for (char32_t c = 0; c < kTwoBytes; ++c) folded_.push_back(FoldCharacter(c));
  std::u32string word;
  const auto end = [&] {
    if (!word.empty()) words_.push_back(std::move(word));
    word.clear();
  };
  for (std::size_t at = 0; at < typed.size();) {
    const char32_t c = NextCharacter(typed, at);
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 0xA0) {
      end();
    } else if (c != kZeroWidthNonJoiner) {
      word.push_back(FoldCharacter(c));
    }
  }
  end();
}

bool PersianWords::AreIn(std::initializer_list<std::string_view> texts) const {
  return std::all_of(words_.begin(), words_.end(),
                     [&](const std::u32string& word) { return IsIn(word, texts); });
}

bool PersianWords::IsIn(std::u32string_view word, std::initializer_list<std::string_view> texts) const {
  constexpr std::size_t kUsualLength = 256;
  char32_t usual[kUsualLength];
  std::u32string longer;
  const bool isAsciiWord = std::all_of(word.begin(), word.end(), [](char32_t c) { return c < 0x80; });
  return std::any_of(texts.begin(), texts.end(), [&](std::string_view text) {
    if (!isAsciiWord && IsAscii(text)) return false;  // codes and barcodes have no Persian letters
    char32_t* characters = usual;
    if (text.size() > kUsualLength) {
      longer.resize(text.size());
      characters = longer.data();
    }
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
      const char32_t c = NextCharacter(text, at);
      if (c == kZeroWidthNonJoiner) continue;
      characters[count++] = c < kTwoBytes ? folded_[c] : FoldCharacter(c);
    }
    return std::u32string_view(characters, count).find(word) != std::u32string_view::npos;
  });
}

}  // namespace koru
