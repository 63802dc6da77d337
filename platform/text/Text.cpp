#include "platform/text/Text.h"

#include <algorithm>
#include <vector>

namespace koru {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Length in bytes of the character that begins with `lead`; 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80U) return 1;
  if (lead >= 0xC2U && lead < 0xE0U) return 2;
  if (lead >= 0xE0U && lead < 0xF0U) return 3;
  if (lead >= 0xF0U && lead < 0xF5U) return 4;
  return 0;
}

constexpr char32_t kInvalid = 0xFFFD;

/// Whether UTF-8 has `c` in `length` bytes: not a surrogate, not beyond Unicode, not in more bytes than
/// needed.
bool IsWellFormed(char32_t c, std::size_t length) {
  if (length <= 2) return true;  // SequenceLength excludes the lead bytes of longer forms
  if (length == 3) return c >= 0x800 && (c < 0xD800 || c > 0xDFFF);
  return c >= 0x10000 && c <= 0x10FFFF;
}

bool IsDirectionMark(char32_t c) {
  return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// A run of digits with separators between them.
struct Figure {
  std::size_t length = 0;  ///< in bytes, including separators
  bool isGrouped = false;  ///< the separators mark groups of three digits
  std::string digits;
};

Figure FigureAt(std::string_view text, std::size_t at, std::u32string_view separators) {
  const std::size_t begin = at;
  Figure figure;
  std::vector<std::size_t> groups;
  for (std::size_t digits = at; digits < text.size() && IsDigit(text[digits]);) {
    at = digits;
    while (at < text.size() && IsDigit(text[at])) ++at;
    groups.push_back(at - digits);
    figure.digits += text.substr(digits, at - digits);
    digits = at;
    if (digits == text.size() || separators.find(NextCharacter(text, digits)) == std::u32string_view::npos)
      break;
  }
  figure.length = at - begin;
  figure.isGrouped =
      groups.size() > 1 && groups.front() <= 3 && text[begin] != '0' &&
      std::all_of(groups.begin() + 1, groups.end(), [](std::size_t size) { return size == 3; });
  return figure;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

char32_t NextCharacterOfAnyLength(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = SequenceLength(lead);
  if (length == 0 || at + length > text.size()) {
    ++at;
    return kInvalid;
  }
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[at + i])) {
      ++at;
      return kInvalid;
    }
    character = (character << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  }
  if (!IsWellFormed(character, length)) {
    ++at;
    return kInvalid;
  }
  at += length;
  return character;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | (character >> 12U));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (character >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string_view Utf16Prefix(std::string_view text, std::size_t units) {
  std::size_t at = 0;
  std::size_t used = 0;
  while (at < text.size()) {
    std::size_t next = at;
    used += NextCharacter(text, next) >= 0x10000 ? 2 : 1;
    if (used > units) break;
    at = next;
  }
  return text.substr(0, at);
}

std::size_t Utf16Length(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) units += NextCharacter(text, at) >= 0x10000 ? 2 : 1;
  return units;
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = LowerAscii(c);
  return lower;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

std::string LeftToRight(std::string_view text) {
  constexpr std::string_view kLeftToRightIsolate = "\u2066";
  constexpr std::string_view kEndOfIsolate = "\u2069";
  std::string isolated(kLeftToRightIsolate);
  isolated += text;
  isolated += kEndOfIsolate;
  return isolated;
}

std::string LatinDigits(std::string_view text) {
  std::string latin;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c >= 0x06F0 && c <= 0x06F9) {
      latin += static_cast<char>('0' + (c - 0x06F0));
    } else if (c >= 0x0660 && c <= 0x0669) {
      latin += static_cast<char>('0' + (c - 0x0660));
    } else if (c == 0x066B) {
      latin += '.';
    } else if (c == 0x2212) {
      latin += '-';
    } else if (!IsDirectionMark(c)) {
      AppendCharacter(latin, c);
    }
  }
  return latin;
}

std::string WithoutGroups(std::string_view text, std::u32string_view separators) {
  std::string number;
  for (std::size_t at = 0; at < text.size();) {
    const Figure figure = FigureAt(text, at, separators);
    const std::string_view written = text.substr(at, std::max<std::size_t>(figure.length, 1));
    number += figure.isGrouped && !number.ends_with('.') ? std::string_view(figure.digits) : written;
    at += written.size();
  }
  return number;
}

}  // namespace koru
