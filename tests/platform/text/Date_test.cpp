#include "platform/text/Date.h"

#include <gtest/gtest.h>

#include <set>

namespace koru {
namespace {

using namespace std::chrono;

TEST(SolarHijri, Known_dates_agree_with_printed_calendars) {
  const std::pair<SolarDate, Date> days[] = {
      {{1357, 11, 22}, 1979y / 2 / 11}, {{1375, 12, 30}, 1997y / 3 / 20}, {{1378, 10, 11}, 2000y / 1 / 1},
      {{1398, 1, 1}, 2019y / 3 / 21},   {{1399, 1, 1}, 2020y / 3 / 20},   {{1399, 12, 30}, 2021y / 3 / 20},
      {{1400, 1, 1}, 2021y / 3 / 21},   {{1403, 1, 1}, 2024y / 3 / 20},   {{1403, 12, 30}, 2025y / 3 / 20},
      {{1404, 1, 1}, 2025y / 3 / 21},   {{1404, 7, 1}, 2025y / 9 / 23},   {{1405, 1, 1}, 2026y / 3 / 21},
  };
  for (const auto& [solar, gregorian] : days) {
    EXPECT_EQ(ToGregorian(solar), gregorian) << SolarText(solar);
    EXPECT_EQ(ToSolar(gregorian), solar) << IsoText(gregorian);
  }
}

TEST(SolarHijri, Leap_years_follow_the_33_year_rule_while_it_runs_unbroken) {
  const std::set<int> leapPlaces = {1, 5, 9, 13, 17, 22, 26, 30};
  for (int year = 1210; year < 1634; ++year) {
    EXPECT_EQ(IsSolarLeapYear(year), leapPlaces.contains(year % 33)) << year;
  }
}

TEST(SolarHijri, Every_date_of_the_known_years_follows_the_one_before) {
  sys_days day{ToGregorian({kFirstSolarYear, 1, 1})};
  for (int year = kFirstSolarYear; year < kLastSolarYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (const int solarDay : {1, SolarMonthDays(year, month)}) {
        const Date expected{day + days{solarDay - 1}};
        ASSERT_EQ(ToGregorian({year, month, solarDay}), expected) << year << "/" << month << "/" << solarDay;
        ASSERT_EQ(ToSolar(expected), (SolarDate{year, month, solarDay}));
      }
      day += days{SolarMonthDays(year, month)};
    }
  }
}

TEST(SolarHijri, A_date_that_does_not_exist_is_refused) {
  EXPECT_FALSE(IsValid({1402, 12, 30}));
  EXPECT_TRUE(IsValid({1403, 12, 30}));
  EXPECT_FALSE(IsValid({1403, 7, 31}));
  EXPECT_FALSE(IsValid({1403, 0, 1}));
  EXPECT_FALSE(IsValid({1403, 13, 1}));
  EXPECT_FALSE(IsValid({0, 1, 1}));
  EXPECT_FALSE(IsValid({9379, 1, 1}));
  EXPECT_THROW(static_cast<void>(ToGregorian({1402, 12, 30})), std::out_of_range);
  EXPECT_THROW(static_cast<void>(ToSolar(600y / 1 / 1)), std::out_of_range);
}

TEST(SolarHijri, The_last_date_that_a_database_holds_has_a_text) {
  EXPECT_EQ(ToSolar(9999y / 12 / 31), (SolarDate{9378, 10, 10}));
  EXPECT_EQ(ToGregorian({9378, 10, 10}), Date(9999y / 12 / 31));
  EXPECT_FALSE(IsValid({9378, 10, 11}));
  EXPECT_FALSE(IsValid({9378, 11, 1}));
}

TEST(SolarHijri, Texts_are_read_and_written) {
  EXPECT_EQ(SolarText(SolarDate{1404, 1, 5}), "1404/01/05");
  EXPECT_EQ(SolarText(2025y / 3 / 21), "1404/01/01");
  EXPECT_EQ(ParseSolar("1404/1/5"), (SolarDate{1404, 1, 5}));
  EXPECT_EQ(ParseSolar("1404/01/05"), (SolarDate{1404, 1, 5}));
  for (const char* text :
       {"", "1404", "1404/01", "1404/13/01", "1402/12/30", "1404/01/05x", "a/b/c", "-1/1/1", "//"}) {
    EXPECT_EQ(ParseSolar(text), std::nullopt) << text;
  }
}

TEST(Date, Is_written_into_statements_as_iso_text) {
  EXPECT_EQ(IsoText(2025y / 3 / 21), "2025-03-21");
  EXPECT_EQ(ParseIso("2025-03-21"), 2025y / 3 / 21);
  EXPECT_EQ(ParseIso("2025-03-21 00:00:00"), 2025y / 3 / 21);
  for (const char* text : {"", "2025-3-21", "2025-02-30", "2025/03/21", "abcd-ef-gh"}) {
    EXPECT_EQ(ParseIso(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace koru
