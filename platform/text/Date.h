#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace koru {

/// A day of the Gregorian calendar, without a time. Every date that the system keeps is one of these; the
/// Solar Hijri text beside it is derived.
using Date = std::chrono::year_month_day;

/// `yyyy-mm-dd`, the form in which every date goes into a statement.
[[nodiscard]] std::string IsoText(Date date);

/// Reads `yyyy-mm-dd`; what follows after the tenth character (a time of day) is not looked at. Empty when
/// the text begins with no day that exists.
[[nodiscard]] std::optional<Date> ParseIso(std::string_view text);

/// A day of the Solar Hijri calendar.
struct SolarDate {
  int year = 0;
  int month = 0;  ///< 1 (Farvardin) to 12 (Esfand)
  int day = 0;    ///< 1 to 31

  friend bool operator==(const SolarDate&, const SolarDate&) = default;
};

/// The years that have days here, both inclusive: to 9999-12-31, which databases hold for "without end". No
/// cycle is known to break off after 3177.
inline constexpr int kFirstSolarYear = 1;
inline constexpr int kLastSolarYear = 9378;

/// Whether the year has 366 days: 33-year rule with its table of the years in which a cycle breaks off.
[[nodiscard]] bool IsSolarLeapYear(int year);

/// 31, 30 or 29; 0 for a month that is none.
[[nodiscard]] int SolarMonthDays(int year, int month);

/// Whether the day exists and its year is known.
[[nodiscard]] bool IsValid(SolarDate date);

/// The Gregorian day of an existing Solar Hijri day; throws std::out_of_range for one that is not valid.
[[nodiscard]] Date ToGregorian(SolarDate date);

/// The Solar Hijri day of a Gregorian one; throws std::out_of_range outside the known years.
[[nodiscard]] SolarDate ToSolar(Date date);

/// `yyyy/mm/dd`, as the `Farsi` columns hold a day.
[[nodiscard]] std::string SolarText(SolarDate date);
[[nodiscard]] std::string SolarText(Date date);

/// Reads `yyyy/mm/dd` (also with one-digit month or day); empty when it is no existing day.
[[nodiscard]] std::optional<SolarDate> ParseSolar(std::string_view text);

}  // namespace koru
