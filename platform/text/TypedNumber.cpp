#include "platform/text/TypedNumber.h"

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr std::u32string_view kSeparators = U",\u060C\u066C";
constexpr std::u32string_view kSignsAndMarks = U"+-\u2212./\u066B";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Persian keyboards have the slash in the place of the decimal mark. Two slashes are a date.
std::string WithPointForSlash(std::string text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos || slash == 0 || slash + 1 == text.size()) return text;
  const bool isDecimalMark = IsDigit(text[slash - 1]) && IsDigit(text[slash + 1]) &&
                             text.find('/', slash + 1) == std::string::npos &&
                             text.find('.') == std::string::npos;
  if (isDecimalMark) text[slash] = '.';
  return text;
}

}  // namespace

std::string TypedNumberText(std::string_view typed) {
  const std::string latin = LatinDigits(typed);
  return WithPointForSlash(WithoutGroups(Trim(latin), kSeparators));
}

double TypedNumber(std::string_view typed) { return Val(TypedNumberText(typed)); }

bool IsTypedNumber(std::string_view typed) {
  const std::string text = TypedNumberText(typed);
  return NumberPrefix(text) == text.size() && !text.empty();
}

bool IsPartOfNumber(char32_t character) {
  const bool digit = (character >= U'0' && character <= U'9') ||
                     (character >= 0x0660 && character <= 0x0669) ||
                     (character >= 0x06F0 && character <= 0x06F9);
  return digit || kSeparators.find(character) != std::u32string_view::npos ||
         kSignsAndMarks.find(character) != std::u32string_view::npos;
}

}  // namespace koru
