#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace koru {

/// `text` without leading and trailing blanks (U+0020 only).
[[nodiscard]] std::string_view Trim(std::string_view text);

/// The longest prefix of the UTF-8 `text` that has at most `units` UTF-16 code units and splits no character.
/// Each byte of invalid UTF-8 counts as one unit.
[[nodiscard]] std::string_view Utf16Prefix(std::string_view text, std::size_t units);

/// The length of the UTF-8 `text` in UTF-16 code units.
[[nodiscard]] std::size_t Utf16Length(std::string_view text);

/// `text` with ASCII letters in lower case and all other bytes unchanged.
[[nodiscard]] std::string LowerAscii(std::string_view text);

/// Compares names of columns, controls and keys: equal up to the case of ASCII letters.
[[nodiscard]] bool EqualsNoCase(std::string_view a, std::string_view b);

/// NextCharacter for characters of any length.
[[nodiscard]] char32_t NextCharacterOfAnyLength(std::string_view text, std::size_t& at);

/// Reads the character at `at`, which must be inside `text`, and advances `at` past it. An invalid byte is
/// read as U+FFFD and advances `at` by one. Characters of one and two bytes, which searches in Persian texts
/// read by the million, have a fast path.
[[nodiscard]] inline char32_t NextCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
  const char32_t first = byte(at);
  if (first < 0x80) {
    ++at;
    return first;
  }
  if (first < 0xC2 || first > 0xDF || at + 1 == text.size() || (byte(at + 1) & 0xC0U) != 0x80U)
    return NextCharacterOfAnyLength(text, at);
  at += 2;
  return (first & 0x1FU) << 6U | (byte(at - 1) & 0x3FU);
}

/// Appends `character` to `text` as UTF-8.
void AppendCharacter(std::string& text, char32_t character);

/// A path, a file name or a connection text for use in a Persian sentence: enclosed in invisible direction
/// marks that keep its parts in left-to-right order.
[[nodiscard]] std::string LeftToRight(std::string_view text);

/// Normalizes typed or pasted text for a number cell: Persian and Arabic digits become 0-9, the Arabic
/// decimal separator becomes a point, the Unicode minus a hyphen; direction marks are removed.
[[nodiscard]] std::string LatinDigits(std::string_view text);

/// Removes those `separators` that group the integer part of a number (digits 0-9) into thousands, as in
/// 1,200 or 1,200,000.5. Other separators stay: a user who types 12,5 may mean 12.5, never 125.
[[nodiscard]] std::string WithoutGroups(std::string_view text, std::u32string_view separators);

}  // namespace koru
