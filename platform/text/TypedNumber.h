#pragma once

#include <string>
#include <string_view>

namespace koru {

// What a user means by a typed or pasted number. The rule is the same for the cells of grids and the boxes of
// searches; docs/windows.md describes it for users.

/// The text as Val reads it, without the blanks around it: digits of any keyboard become 0-9, `٫` and a
/// single `/` between digits become a point (12/5 is 12.5), and the separators `,` `،` `٬` that group the
/// integer part into thousands are removed (1,500,000). Everything else stays: 12,5 is no number.
[[nodiscard]] std::string TypedNumberText(std::string_view typed);

/// The number at the beginning of a typed text; 0 if the text begins with none.
[[nodiscard]] double TypedNumber(std::string_view typed);

/// Whether the whole typed text is one number. False for an empty text.
[[nodiscard]] bool IsTypedNumber(std::string_view typed);

/// Whether the character can be part of a typed number: a digit, a sign, a decimal mark or a separator.
[[nodiscard]] bool IsPartOfNumber(char32_t character);

}  // namespace koru
