// Days of both calendars survive being written, read and converted; days that follow each other follow each
// other in both.

#include <chrono>
#include <cstring>
#include <stdexcept>
#include <string>

#include "fuzz/Require.h"
#include "platform/text/Date.h"

namespace {

using koru::fuzz::Require;

constexpr koru::SolarDate kFirst{koru::kFirstSolarYear, 1, 1};

void CheckSolar(koru::SolarDate day) {
  Require(koru::IsValid(day), "what was read is a day");
  const koru::Date gregorian = koru::ToGregorian(day);
  Require(gregorian.ok(), "a day has its Gregorian day");
  Require(koru::ToSolar(gregorian) == day, "a day survives both conversions");
  Require(koru::ParseSolar(koru::SolarText(day)) == day, "a day survives its text");
  Require(koru::SolarText(gregorian) == koru::SolarText(day), "both have one text");
}

void CheckGregorian(koru::Date day) {
  Require(koru::ParseIso(koru::IsoText(day)) == day, "a Gregorian day survives its text");
  try {
    CheckSolar(koru::ToSolar(day));
  } catch (const std::out_of_range&) {
    Require(day < koru::ToGregorian(kFirst) || day.year() > std::chrono::year{9999},
            "only days outside the known years are refused");
  }
}

/// A day by its count, and the one after it.
void CheckNeighbours(std::uint32_t count) {
  const std::chrono::sys_days begin = koru::ToGregorian(kFirst);
  constexpr std::uint32_t kKnownDays = 3'425'000;
  const koru::SolarDate day = koru::ToSolar(begin + std::chrono::days(count % kKnownDays));
  CheckSolar(day);
  const koru::SolarDate next = koru::ToSolar(begin + std::chrono::days(count % kKnownDays + 1));
  const bool newMonth = day.day == koru::SolarMonthDays(day.year, day.month);
  const bool newYear = newMonth && day.month == 12;
  Require(next.day == (newMonth ? 1 : day.day + 1), "days follow each other");
  Require(next.month == (newYear ? 1 : day.month + (newMonth ? 1 : 0)), "months follow each other");
  Require(next.year == day.year + (newYear ? 1 : 0), "years follow each other");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = koru::fuzz::TextOf(data, size);
  if (const auto solar = koru::ParseSolar(text)) CheckSolar(*solar);
  if (const auto gregorian = koru::ParseIso(text)) CheckGregorian(*gregorian);
  std::uint32_t count = 0;
  if (size >= sizeof count) std::memcpy(&count, data, sizeof count);
  CheckNeighbours(count);
  return 0;
}
