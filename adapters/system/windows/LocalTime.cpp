#include "adapters/system/LocalTime.h"

#include <windows.h>

namespace koru {

// Not the C library's: it takes the zone from the variable TZ, whose names of cities it does not know, and
// has the same summer time in all years.
std::chrono::local_seconds LocalTime(std::chrono::sys_seconds time) {
  const std::chrono::sys_days day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss<std::chrono::seconds> clock(time - day);
  SYSTEMTIME utc{};
  utc.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  utc.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  utc.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  utc.wHour = static_cast<WORD>(clock.hours().count());
  utc.wMinute = static_cast<WORD>(clock.minutes().count());
  utc.wSecond = static_cast<WORD>(clock.seconds().count());
  TIME_ZONE_INFORMATION zone{};
  GetTimeZoneInformationForYear(utc.wYear, nullptr, &zone);
  SYSTEMTIME local{};
  SystemTimeToTzSpecificLocalTime(&zone, &utc, &local);
  return std::chrono::local_days(std::chrono::year{local.wYear} / local.wMonth / local.wDay) +
         std::chrono::hours(local.wHour) + std::chrono::minutes(local.wMinute) +
         std::chrono::seconds(local.wSecond);
}

}  // namespace koru
