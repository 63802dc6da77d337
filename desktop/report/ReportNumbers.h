#pragma once

#include <string>
#include <string_view>

namespace koru {

/// A number as a report shows it: at most so many decimals, thousands grouped with `,`; Latin digits. Numbers
/// from 1E+15 on keep their exponent form.
[[nodiscard]] std::string ReportNumber(double number, int decimals);

/// The digits of a shown text, which are chosen here for all reports: Persian digits and separators in place
/// of Latin ones for a number, Persian digits for any other text, unless it has Latin letters (a code such as
/// "A-12").
[[nodiscard]] std::string PersianNumber(std::string_view number);
[[nodiscard]] std::string PersianDigits(std::string_view text);

}  // namespace koru
