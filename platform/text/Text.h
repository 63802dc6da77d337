#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace koru {

/// `text` without the blanks (U+0020 only) at its two ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

/// The longest beginning of the UTF-8 `text` that takes at most `units` UTF-16 units and cuts no character in
/// two. Bytes that are not UTF-8 count as one unit each.
[[nodiscard]] std::string_view Utf16Prefix(std::string_view text, std::size_t units);

/// The number of UTF-16 units of the UTF-8 `text`.
[[nodiscard]] std::size_t Utf16Length(std::string_view text);

/// `text` with ASCII letters in lower case; every other byte as it is.
[[nodiscard]] std::string LowerAscii(std::string_view text);

/// Whether two texts are the same but for the case of ASCII letters; for names of columns, controls and keys.
[[nodiscard]] bool EqualsNoCase(std::string_view a, std::string_view b);

/// Reads the character that begins at `at` (which must lie inside `text`) and moves `at` behind it. A byte
/// that is not UTF-8 is read as U+FFFD and moves `at` by one.
[[nodiscard]] char32_t NextCharacter(std::string_view text, std::size_t& at);

/// Appends `character` to `text` as UTF-8.
void AppendCharacter(std::string& text, char32_t character);

/// A path, a file name or a connection text as it stands in a Persian sentence: between marks that keep it
/// from left to right and its parts in their order. They are not seen.
[[nodiscard]] std::string LeftToRight(std::string_view text);

/// What a person's keyboard or clipboard gives, as a number cell wants it: Persian and Arabic digits become
/// 0-9, the Arabic decimal separator a point, the Unicode minus a hyphen; direction marks are dropped.
[[nodiscard]] std::string LatinDigits(std::string_view text);

/// A number with digits 0-9 without those of its `separators` that part its whole part into groups of three,
/// as in 1,200 or 1,200,000.5. A separator anywhere else stays: where 12,5 was meant as 12.5, 125 is wrong.
[[nodiscard]] std::string WithoutGroups(std::string_view text, std::u32string_view separators);

}  // namespace koru
