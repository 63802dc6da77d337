#include "platform/text/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace koru {
namespace {

TEST(Val, Reads_the_leading_number_and_stops_at_the_first_other_character) {
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("007"), 7);
  EXPECT_EQ(Val("999999999999999"), 999999999999999.0);
  EXPECT_EQ(Val("9007199254740993"), 9007199254740992.0) << "more digits than a double has";
  EXPECT_EQ(Val("  \t 3.25 kg"), 3.25);
  EXPECT_EQ(Val("-4"), -4);
  EXPECT_EQ(Val("+4"), 4);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("1e3"), 1000);
  EXPECT_EQ(Val("1e"), 1);
  EXPECT_EQ(Val("1e+"), 1);
  EXPECT_EQ(Val("2E-2x"), 0.02);
}

TEST(Val, What_is_no_number_is_zero) {
  for (const char* text : {"", "   ", "abc", "-", "+", ".", "e5", "--1", "۱۲", "كالا", "&H10", "inf", "nan",
                           "\xC2\xA0"
                           "5"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
  EXPECT_EQ(Val("0x10"), 0);
}

TEST(Val, Is_never_infinite_and_never_minus_zero) {
  EXPECT_EQ(Val("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("-1e999"), -std::numeric_limits<double>::max());
  EXPECT_EQ(Val("1e-999"), 0);
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(Val(std::string(400, '9')), std::numeric_limits<double>::max());
  EXPECT_FALSE(std::signbit(Val("-0")));
}

TEST(NumberText, Writes_up_to_fifteen_digits_without_grouping) {
  EXPECT_EQ(NumberText(0), "0");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(12.5), "12.5");
  EXPECT_EQ(NumberText(-837.70), "-837.7");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(NumberText(123456789012345), "123456789012345");
  EXPECT_EQ(NumberText(1234567.891), "1234567.891");
  EXPECT_EQ(NumberText(999999999999999.4), "999999999999999");
}

TEST(NumberText, Large_and_very_small_numbers_are_in_exponent_form) {
  EXPECT_EQ(NumberText(1e15), "1E+15");
  EXPECT_EQ(NumberText(1.5e20), "1.5E+20");
  EXPECT_EQ(NumberText(-2.5e100), "-2.5E+100");
  EXPECT_EQ(NumberText(0.00001), "0.00001");
  EXPECT_EQ(NumberText(1e-15), "0.000000000000001");
  EXPECT_EQ(NumberText(1e-16), "1E-16");
  EXPECT_EQ(NumberText(1.5e-15), "1.5E-15");
  EXPECT_EQ(NumberText(999999999999999.6), "1E+15");
}

TEST(NumberText, From_a_ten_thousandth_up_it_is_in_decimal_form_however_many_digits_follow) {
  EXPECT_EQ(NumberText(10 - 9.97), "0.0299999999999994");
  EXPECT_EQ(NumberText(-(10 - 9.97)), "-0.0299999999999994");
  EXPECT_EQ(NumberText(0.000123456789012345), "0.000123456789012345");
  EXPECT_EQ(NumberText(0.0001), "0.0001");
  EXPECT_EQ(NumberText(0.00009999999999999996), "0.0001");
  EXPECT_EQ(NumberText(0.0000123456789012345), "1.23456789012345E-05");
  EXPECT_EQ(Val("0.0299999999999994"), 0.0299999999999994);
}

TEST(NumberText, The_smallest_numbers_have_fifteen_digits_too) {
  EXPECT_EQ(NumberText(5e-324), "4.94065645841247E-324");
  EXPECT_EQ(NumberText(2.2250738585072014e-308), "2.2250738585072E-308");
}

TEST(NumberText, Has_the_digits_that_the_number_rounds_to) {
  std::mt19937_64 random(15);
  for (int i = 0; i < 20'000; ++i) {
    const double number =
        std::ldexp(static_cast<double>(random() >> 11U), static_cast<int>(random() % 600) - 300);
    char rounded[40];
    std::snprintf(rounded, sizeof rounded, "%.14e", number);
    EXPECT_EQ(std::strtod(NumberText(number).c_str(), nullptr), std::strtod(rounded, nullptr)) << rounded;
  }
}

TEST(NumberText, Reads_back_as_the_same_fifteen_digits) {
  std::mt19937_64 random(20260101);
  std::uniform_real_distribution<double> exponent(-20, 20);
  for (int i = 0; i < 20000; ++i) {
    const double number = std::pow(10.0, exponent(random)) * (i % 2 == 0 ? 1 : -1);
    EXPECT_NEAR(Val(NumberText(number)) / number, 1, 1e-14) << number;
    EXPECT_EQ(NumberText(Val(NumberText(number))), NumberText(number));
  }
}

TEST(Round, Rounds_half_to_even) {
  EXPECT_EQ(Round(12.5, 0), 12);
  EXPECT_EQ(Round(13.5, 0), 14);
  EXPECT_EQ(Round(-12.5, 0), -12);
  EXPECT_EQ(Round(0.5, 0), 0);
  EXPECT_EQ(Round(1.5, 0), 2);
  EXPECT_EQ(Round(2.4999, 0), 2);
  EXPECT_EQ(Round(9.5, 0), 10);
  EXPECT_EQ(Round(99.5, 0), 100);
  EXPECT_EQ(Round(0.4, 0), 0);
  EXPECT_EQ(Round(0.04, 0), 0);
}

TEST(Round, Drops_what_lies_beyond_the_fifteen_digits_even_where_nothing_is_left_to_round) {
  EXPECT_EQ(Round(0.1 + 0.2, 3), 0.3);
  EXPECT_EQ(Round(357.99999999999994, 0), 358);
  EXPECT_EQ(Round(-357.99999999999994, 9), -358);
  EXPECT_EQ(Round(4503599627370497.0, 0), 4503599627370497.0) << "a whole number stays";
}

TEST(Round, Takes_ties_at_three_places_as_they_are_written) {
  EXPECT_EQ(Round(0.0005, 3), 0);
  EXPECT_EQ(Round(0.0015, 3), 0.002);
  EXPECT_EQ(Round(1.0005, 3), 1);
  EXPECT_EQ(Round(1.0015, 3), 1.002);
  EXPECT_EQ(Round(2.0015, 3), 2.002);
  EXPECT_EQ(Round(12.34567, 3), 12.346);
  EXPECT_EQ(Round(-1.0015, 3), -1.002);
  EXPECT_EQ(Round(1e14 + 0.5, 3), 1e14 + 0.5);
}

TEST(Round, Leaves_whole_and_huge_numbers_alone) {
  EXPECT_EQ(Round(0, 3), 0);
  EXPECT_EQ(Round(1e300, 0), 1e300);
  EXPECT_EQ(Round(32767, 0), 32767);
  EXPECT_FALSE(std::signbit(Round(-0.0001, 3)));
}

}  // namespace
}  // namespace koru
