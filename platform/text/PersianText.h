#pragma once

#include <string>
#include <string_view>

namespace koru {

/// A text as it is compared and looked up: letters that Persian keyboards produce in two forms (Arabic and
/// Persian yeh and kaf), all three kinds of digits and upper and lower case are one; the zero-width
/// non-joiner and blanks at the end do not count. What is stored or shown is never changed to this form.
[[nodiscard]] std::string FoldPersian(std::string_view text);

/// One character of such a text: the case, letter form and digit that it counts as.
[[nodiscard]] char32_t FoldCharacter(char32_t character);

/// Written between two letters that shall not join; counts for nothing when texts are compared.
inline constexpr char32_t kZeroWidthNonJoiner = 0x200C;

/// A key whose byte order is the order of Persian lists: texts are folded, then compared letter by letter in
/// the alphabet's order (so that پ comes after ب and گ after ک), digits and Latin letters first.
[[nodiscard]] std::string PersianSortKey(std::string_view text);
/// Writes the key behind others.
void AppendPersianSortKey(std::string& keys, std::string_view text);

/// Below 0, 0 or above 0 as `a` comes before, equals or comes after `b` in that order.
[[nodiscard]] int ComparePersian(std::string_view a, std::string_view b);

}  // namespace koru
