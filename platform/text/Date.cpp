#include "platform/text/Date.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <stdexcept>

namespace koru {
namespace {

using std::chrono::sys_days;

/// The first years of runs of 33-year cycles. Within a run the leap years repeat every 33 years: the first
/// year and every fourth year after it, with one gap of five years at the end of each cycle.
constexpr std::array<int, 21> kRuns = {-61,  9,    38,   199,  426,  686,  756,  818,  1111, 1181, 1210,
                                       1635, 2060, 2097, 2192, 2262, 2324, 2394, 2456, 3178, 10000};

/// Leap years among the first `years` years of a run of `length` years. A last cycle that is up to three
/// years short of 33 ends on the four-year step that its length gives.
int LeapYearsInRun(int years, int length) {
  const int leaps = years / 33 * 8 + (years % 33 + 3) / 4;
  const bool runEndsEarly = length % 33 == 4 && length - years == 4;
  return runEndsEarly ? leaps + 1 : leaps;
}

/// Leap years from the beginning of the first run up to, but not including, `year`.
int LeapYearsBefore(int year) {
  int leaps = 0;
  for (std::size_t run = 1; run < kRuns.size(); ++run) {
    const int length = kRuns[run] - kRuns[run - 1];
    if (year < kRuns[run]) return leaps + LeapYearsInRun(year - kRuns[run - 1], length);
    leaps += length / 33 * 8 + length % 33 / 4;
  }
  return leaps;
}

int DaysBeforeYear(int year) { return (year - kRuns.front()) * 365 + LeapYearsBefore(year); }

int DaysBeforeMonth(int month) { return month <= 7 ? (month - 1) * 31 : 6 * 31 + (month - 7) * 30; }

/// 1 Farvardin 1400 was 21 March 2021.
sys_days NewYear(int year) {
  constexpr sys_days kAnchor = std::chrono::year{2021} / 3 / 21;
  return kAnchor + std::chrono::days{DaysBeforeYear(year) - DaysBeforeYear(1400)};
}

/// The number that `text` spells in digits; -1 when it has any other character.
int Digits(std::string_view text) {
  if (text.empty() || text.front() < '0' || text.front() > '9') return -1;
  int number = -1;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc{} && result.ptr == text.data() + text.size() ? number : -1;
}

}  // namespace

std::string IsoText(Date date) {
  char text[20];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

std::optional<Date> ParseIso(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = Digits(text.substr(0, 4));
  const int month = Digits(text.substr(5, 2));
  const int day = Digits(text.substr(8, 2));
  if (year < 0 || month < 0 || day < 0) return std::nullopt;
  const Date date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                  std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return std::nullopt;
  return date;
}

bool IsSolarLeapYear(int year) { return LeapYearsBefore(year + 1) - LeapYearsBefore(year) == 1; }

int SolarMonthDays(int year, int month) {
  if (month < 1 || month > 12) return 0;
  if (month <= 6) return 31;
  if (month <= 11) return 30;
  return IsSolarLeapYear(year) ? 30 : 29;
}

bool IsValid(SolarDate date) {
  constexpr SolarDate kLast{kLastSolarYear, 10, 10};  // 9999-12-31: no statement can hold a later date
  if (date.year == kLast.year &&
      (date.month > kLast.month || (date.month == kLast.month && date.day > kLast.day))) {
    return false;
  }
  return date.year >= kFirstSolarYear && date.year <= kLastSolarYear && date.day >= 1 &&
         date.day <= SolarMonthDays(date.year, date.month);
}

Date ToGregorian(SolarDate date) {
  if (!IsValid(date)) throw std::out_of_range("no such Solar Hijri date");
  return NewYear(date.year) + std::chrono::days{DaysBeforeMonth(date.month) + date.day - 1};
}

bool HasSolarDate(Date date) {
  const int year = static_cast<int>(date.year()) - 621;
  return year <= kLastSolarYear && sys_days{date} >= NewYear(kFirstSolarYear);
}

SolarDate ToSolar(Date date) {
  if (!HasSolarDate(date)) throw std::out_of_range("a date outside the supported Solar Hijri years");
  const sys_days day{date};
  int year = static_cast<int>(date.year()) - 621;
  if (day < NewYear(year)) --year;
  const auto dayOfYear = static_cast<int>((day - NewYear(year)).count());
  int month = 12;
  while (DaysBeforeMonth(month) > dayOfYear) --month;
  return {year, month, dayOfYear - DaysBeforeMonth(month) + 1};
}

std::string SolarText(SolarDate date) {
  char text[20];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", date.year, date.month, date.day);
  return text;
}

std::string SolarText(Date date) { return SolarText(ToSolar(date)); }

std::optional<SolarDate> ParseSolar(std::string_view text) {
  const std::size_t first = text.find('/');
  const std::size_t second = first == std::string_view::npos ? first : text.find('/', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const SolarDate date{Digits(text.substr(0, first)), Digits(text.substr(first + 1, second - first - 1)),
                       Digits(text.substr(second + 1))};
  if (!IsValid(date)) return std::nullopt;
  return date;
}

}  // namespace koru
