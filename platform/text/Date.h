#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace koru {

/// A Gregorian calendar date without a time. The database stores this date; the Solar Hijri text beside it is
/// derived.
using Date = std::chrono::year_month_day;

/// `yyyy-mm-dd`, the form of every date in a statement.
[[nodiscard]] std::string IsoText(Date date);

/// Reads `yyyy-mm-dd`; characters after the tenth (a time) are ignored. Empty when the text does not begin
/// with an existing date.
[[nodiscard]] std::optional<Date> ParseIso(std::string_view text);

/// A date of the Solar Hijri calendar.
struct SolarDate {
  int year = 0;
  int month = 0;  ///< 1 (Farvardin) to 12 (Esfand)
  int day = 0;    ///< 1 to 31

  friend bool operator==(const SolarDate&, const SolarDate&) = default;
};

/// The supported years, inclusive. The last one contains 9999-12-31, which databases use for "no end". The
/// 33-year rule is applied without an exception after year 3177.
inline constexpr int kFirstSolarYear = 1;
inline constexpr int kLastSolarYear = 9378;

/// Whether the year has 366 days, by the 33-year rule and the table of years in which a cycle ends early.
[[nodiscard]] bool IsSolarLeapYear(int year);

/// 31, 30 or 29; 0 for a month outside 1 to 12.
[[nodiscard]] int SolarMonthDays(int year, int month);

/// Whether the date exists and its year is supported.
[[nodiscard]] bool IsValid(SolarDate date);

/// The Gregorian date. Throws std::out_of_range when `date` is not valid.
[[nodiscard]] Date ToGregorian(SolarDate date);

/// Whether ToSolar has a date for it: not before 0622-03-22, the first day of the first year.
[[nodiscard]] bool HasSolarDate(Date date);

/// The Solar Hijri date. Throws std::out_of_range outside the supported years.
[[nodiscard]] SolarDate ToSolar(Date date);

/// `yyyy/mm/dd`, the form in the `Farsi` columns.
[[nodiscard]] std::string SolarText(SolarDate date);
[[nodiscard]] std::string SolarText(Date date);

/// Reads `yyyy/mm/dd`, also with a one-digit month or day. Empty when there is no such date.
[[nodiscard]] std::optional<SolarDate> ParseSolar(std::string_view text);

}  // namespace koru
