#include "platform/text/TypedNumber.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace koru {
namespace {

TEST(TypedNumber, Twelve_and_a_half_is_the_same_number_in_every_way_that_a_keyboard_writes_it) {
  for (const char* const typed : {"12.5", "12/5", "۱۲/۵", "۱۲٫۵", "١٢٫٥", " 12/5 ", "\u200E۱۲٫۵"}) {
    EXPECT_EQ(TypedNumberText(typed), "12.5") << typed;
    EXPECT_EQ(TypedNumber(typed), 12.5) << typed;
    EXPECT_TRUE(IsTypedNumber(typed)) << typed;
  }
}

TEST(TypedNumber, Separators_of_thousands_are_no_part_of_the_number) {
  const std::pair<const char*, double> cases[] = {
      {"1,500,000", 1500000}, {"1٬500٬000", 1500000}, {"۱،۵۰۰،۰۰۰", 1500000},  {"1,500/25", 1500.25},
      {"۱٬۵۰۰٫۲۵", 1500.25},  {"-1,500", -1500},      {"\u2212۱٬۵۰۰", -1500.0}};
  for (const auto& [typed, number] : cases) {
    EXPECT_EQ(TypedNumber(typed), number) << typed;
    EXPECT_TRUE(IsTypedNumber(typed)) << typed;
  }
}

TEST(TypedNumber, A_text_that_is_no_number_is_not_taken_for_one) {
  for (const char* const typed : {"", "  ", "-", ".", "/", "abc", "12abc", "پنج", "12,5", "0,200", "1,20,300",
                                  "1404/01/15", "1/2.5", "12/", "/5", "1.2.3", "1 500", "=5"}) {
    EXPECT_FALSE(IsTypedNumber(typed)) << typed;
  }
}

TEST(TypedNumber, A_search_reads_the_number_that_a_text_begins_with) {
  const std::pair<const char*, double> cases[] = {{"12abc", 12}, {"abc", 0},           {"12,5", 12},
                                                  {"", 0},       {"1404/01/15", 1404}, {"7' or 1=1", 7}};
  for (const auto& [typed, number] : cases) EXPECT_EQ(TypedNumber(typed), number) << typed;
}

TEST(TypedNumber, Only_digits_signs_decimal_marks_and_separators_are_parts_of_a_number) {
  for (const char32_t part : std::u32string_view(U"0123456789۰۹٠٩+-−./٫,،٬")) {
    EXPECT_TRUE(IsPartOfNumber(part)) << static_cast<unsigned>(part);
  }
  for (const char32_t other : std::u32string_view(U" aEZالف*:;=%'\n")) {
    EXPECT_FALSE(IsPartOfNumber(other)) << static_cast<unsigned>(other);
  }
}

}  // namespace
}  // namespace koru
