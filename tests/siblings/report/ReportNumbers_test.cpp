#include "siblings/report/ReportNumbers.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

TEST(ReportNumbers, Numbers_are_grouped_and_have_no_more_decimals_than_asked_for) {
  EXPECT_EQ(ReportNumber(0, 3), "0");
  EXPECT_EQ(ReportNumber(1234567.5, 3), "1,234,567.5");
  EXPECT_EQ(ReportNumber(-1234, 0), "-1,234");
  EXPECT_EQ(ReportNumber(-999, 0), "-999");
  EXPECT_EQ(ReportNumber(12.34567, 3), "12.346");
  EXPECT_EQ(ReportNumber(2.5, 0), "2");
  EXPECT_EQ(ReportNumber(1e15, 0), "1E+15");
}

TEST(ReportNumbers, Digits_become_persian_but_not_those_of_a_latin_code) {
  EXPECT_EQ(PersianNumber("-1,234.5"), "-۱٬۲۳۴٫۵");
  EXPECT_EQ(PersianDigits("1404/01/15, 2.5"), "۱۴۰۴/۰۱/۱۵, ۲.۵");
  EXPECT_EQ(PersianDigits("كالاي 12"), "كالاي ۱۲");
  EXPECT_EQ(PersianDigits("A-12"), "A-12");
}

}  // namespace
}  // namespace koru
