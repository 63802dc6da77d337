#include "adapters/odbc/WideText.h"

#include <cstddef>

#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr char32_t kFirstBeyondOneUnit = 0x10000;
constexpr char32_t kReplacement = 0xFFFD;

bool IsHighHalf(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowHalf(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string utf16;
  utf16.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t character = NextCharacter(utf8, at);
    if (character < kFirstBeyondOneUnit) {
      utf16 += static_cast<char16_t>(character);
    } else {
      utf16 += static_cast<char16_t>(0xD800U + ((character - kFirstBeyondOneUnit) >> 10U));
      utf16 += static_cast<char16_t>(0xDC00U + ((character - kFirstBeyondOneUnit) & 0x3FFU));
    }
  }
  return utf16;
}

std::string ToUtf8(std::u16string_view utf16) {
  std::string utf8;
  utf8.reserve(utf16.size());
  for (std::size_t at = 0; at < utf16.size(); ++at) {
    char32_t character = utf16[at];
    if (IsHighHalf(character) && at + 1 < utf16.size() && IsLowHalf(utf16[at + 1])) {
      character = kFirstBeyondOneUnit + ((character - 0xD800U) << 10U) + (utf16[++at] - 0xDC00U);
    } else if (IsHighHalf(character) || IsLowHalf(character)) {
      character = kReplacement;
    }
    AppendCharacter(utf8, character);
  }
  return utf8;
}

}  // namespace koru
