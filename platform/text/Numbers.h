#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace koru {

/// The leading number of a cell's text. Blanks and tabs are skipped; then a sign, digits 0-9, one point and
/// an exponent are read up to the first other character. A text without a number gives 0. The result is
/// finite (a larger number gives the largest double); hexadecimal is not read.
[[nodiscard]] double Val(std::string_view text);

/// The length in bytes of the part of `text` that Val reads as a number, with the blanks and the sign before
/// it; 0 if Val reads none.
[[nodiscard]] std::size_t NumberPrefix(std::string_view text);

/// The default text of a number: up to 15 significant digits, a point, no grouping. Exponent form ("1E+15",
/// "1.5E-16") from 1E+15 on, and below 0.0001 where more than 15 decimals would be needed. Zero is "0", never
/// "-0".
[[nodiscard]] std::string NumberText(double number);

/// Rounds half to even at `decimals` places (0 to 9). The number is taken as its 15 significant digits say,
/// so that 1.0015 is a tie at three places although its double lies a little below, and 0.1 + 0.2 is 0.3 at
/// any number of places.
[[nodiscard]] double Round(double number, int decimals);

}  // namespace koru
