#pragma once

#include <string>
#include <string_view>

namespace koru {

/// The form of a text that comparisons and searches use. Letters that Persian keyboards produce in two forms
/// (Arabic and Persian yeh and kaf), the three kinds of digits, and upper and lower case are each unified;
/// zero-width non-joiners and trailing blanks are removed. Stored and shown texts never take this form.
[[nodiscard]] std::string FoldPersian(std::string_view text);

/// One character folded: case, letter form and kind of digit.
[[nodiscard]] char32_t FoldCharacter(char32_t character);

/// Separates two letters that must not join; ignored in comparisons.
inline constexpr char32_t kZeroWidthNonJoiner = 0x200C;

/// A key whose byte order is the order of Persian lists: folded texts are compared letter by letter in
/// alphabetical order (پ after ب, گ after ک), with digits and Latin letters first.
[[nodiscard]] std::string PersianSortKey(std::string_view text);
/// Appends the key of `text` to `keys`.
void AppendPersianSortKey(std::string& keys, std::string_view text);

/// Negative, 0 or positive when `a` sorts before, equal to or after `b` in that order.
[[nodiscard]] int ComparePersian(std::string_view a, std::string_view b);

}  // namespace koru
