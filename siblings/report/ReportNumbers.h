#pragma once

#include <string>
#include <string_view>

namespace koru {

/// The text of a number in a report: at most `decimals` decimals, thousands grouped with `,`, Latin digits.
/// Numbers from 1E+15 on keep the exponent form.
[[nodiscard]] std::string ReportNumber(double number, int decimals);

/// Converts the digits of a text for all reports. PersianNumber uses Persian digits and separators;
/// PersianDigits uses Persian digits unless the text has Latin letters (a code such as "A-12").
[[nodiscard]] std::string PersianNumber(std::string_view number);
[[nodiscard]] std::string PersianDigits(std::string_view text);

}  // namespace koru
