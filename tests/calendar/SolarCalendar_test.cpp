#include <gtest/gtest.h>

#include <QCalendar>
#include <QDate>
#include <algorithm>
#include <set>
#include <string>

#include "platform/text/Date.h"

namespace koru {
namespace {

using std::chrono::sys_days;

/// The toolkit's calendar takes a cycle of 2820 years, ours the 33-year rule. They are the same calendar in
/// these years, both inclusive.
constexpr int kFirstCommonYear = 1277;
constexpr int kLastCommonYear = 1435;

const QCalendar kToolkit(QCalendar::System::Jalali);

QDate ToToolkit(Date date) {
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

SolarDate ByToolkit(Date date) {
  const QCalendar::YearMonthDay parts = kToolkit.partsFromDate(ToToolkit(date));
  return {parts.year, parts.month, parts.day};
}

Date NewYear(int year) { return ToGregorian({year, 1, 1}); }

TEST(SolarCalendar, Every_date_of_1277_to_1435_is_that_of_the_toolkits_calendar) {
  const sys_days end = sys_days{NewYear(kLastCommonYear + 1)};
  int days = 0;
  for (sys_days day = sys_days{NewYear(kFirstCommonYear)}; day < end; day += std::chrono::days{1}, ++days) {
    const SolarDate solar = ToSolar(day);
    ASSERT_EQ(SolarText(solar), SolarText(ByToolkit(day))) << IsoText(day);
    ASSERT_EQ(kToolkit.dateFromParts(solar.year, solar.month, solar.day), ToToolkit(day)) << IsoText(day);
  }
  EXPECT_EQ(days, 58'073);
}

TEST(SolarCalendar, Months_and_leap_years_of_1277_to_1435_are_those_of_the_toolkits_calendar) {
  for (int year = kFirstCommonYear; year <= kLastCommonYear; ++year) {
    EXPECT_EQ(IsSolarLeapYear(year), kToolkit.isLeapYear(year)) << year;
    for (int month = 1; month <= 12; ++month) {
      EXPECT_EQ(SolarMonthDays(year, month), kToolkit.daysInMonth(month, year)) << year << '/' << month;
    }
  }
}

TEST(SolarCalendar, The_years_that_begin_on_another_day_around_them_are_known) {
  std::set<int> differing;
  for (int year = 1200; year <= 1480; ++year) {
    if (ToToolkit(NewYear(year)) != kToolkit.dateFromParts(year, 1, 1)) differing.insert(year);
  }
  EXPECT_EQ(differing, (std::set<int>{1210, 1243, 1276, 1437, 1470}));
}

}  // namespace
}  // namespace koru
