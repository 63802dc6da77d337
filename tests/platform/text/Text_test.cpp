#include "platform/text/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace koru {
namespace {

TEST(Trim, Takes_blanks_away_and_nothing_else) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("\u00A0x\u00A0"), "\u00A0x\u00A0");
}

TEST(Utf16Prefix, Counts_as_the_server_does_and_cuts_no_character) {
  EXPECT_EQ(Utf16Prefix("شمارش", 3), "شما");
  EXPECT_EQ(Utf16Prefix("abc", 10), "abc");
  EXPECT_EQ(Utf16Prefix("a😀b", 1), "a");
  EXPECT_EQ(Utf16Prefix("a😀b", 2), "a") << "an emoji is two units and is not cut";
  EXPECT_EQ(Utf16Prefix("a😀b", 3), "a😀");
  EXPECT_EQ(Utf16Prefix("", 5), "");
  EXPECT_EQ(Utf16Length("a😀ي"), 4U);
}

TEST(NextCharacter, Reads_no_surrogates_no_longer_forms_and_nothing_beyond_unicode) {
  for (const std::string_view text :
       {"\xED\xA0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
    std::size_t at = 0;
    EXPECT_EQ(NextCharacter(text, at), 0xFFFDU);
    EXPECT_EQ(at, 1U);
  }
  for (const std::string_view text : {"\xED\x9F\xBF", "\xEE\x80\x80", "\xE0\xA0\x80", "\xF4\x8F\xBF\xBF"}) {
    std::size_t at = 0;
    EXPECT_NE(NextCharacter(text, at), 0xFFFDU);
    EXPECT_EQ(at, text.size());
  }
}

TEST(NextCharacter, Reads_broken_bytes_one_by_one) {
  const std::string text = std::string("\xD9") + "a\xFF" + "\xE2\x80";
  std::size_t at = 0;
  EXPECT_EQ(NextCharacter(text, at), 0xFFFDU);
  EXPECT_EQ(NextCharacter(text, at), U'a');
  EXPECT_EQ(NextCharacter(text, at), 0xFFFDU);
  EXPECT_EQ(at, 3U);
  EXPECT_EQ(NextCharacter(text, at), 0xFFFDU);
  EXPECT_EQ(NextCharacter(text, at), 0xFFFDU);
  EXPECT_EQ(at, text.size());
}

TEST(AppendCharacter, Writes_what_NextCharacter_reads) {
  for (const char32_t c : {U'a', U'é', U'ي', U'\u200C', U'€', U'😀'}) {
    std::string text;
    AppendCharacter(text, c);
    std::size_t at = 0;
    EXPECT_EQ(NextCharacter(text, at), c);
    EXPECT_EQ(at, text.size());
  }
}

TEST(LatinDigits, Make_a_persian_keyboard_type_numbers) {
  EXPECT_EQ(LatinDigits("۱۲۳۴۵۶۷۸۹۰"), "1234567890");
  EXPECT_EQ(LatinDigits("٠١٢٣٤٥٦٧٨٩"), "0123456789");
  EXPECT_EQ(LatinDigits("۱۲٬۳۴۵٫۵"), "12٬345.5");
  EXPECT_EQ(LatinDigits("\u200E\u2212۸۳۷"), "-837");
  EXPECT_EQ(LatinDigits("كد 5"), "كد 5");
}

TEST(LeftToRight, Puts_a_path_between_marks_of_its_own_direction) {
  EXPECT_EQ(LeftToRight("/home/ي.db"), "\u2066/home/ي.db\u2069");
}

TEST(WithoutGroups, Drops_the_separators_that_part_groups_of_three_and_no_others) {
  const auto number = [](std::string_view text) { return WithoutGroups(text, U",\u066C"); };
  EXPECT_EQ(number("1,200"), "1200");
  EXPECT_EQ(number("-1,200,000.5"), "-1200000.5");
  EXPECT_EQ(number("1٬200,000 كيلو"), "1200000 كيلو");
  EXPECT_EQ(number("1,200,"), "1200,");
  for (const char* const text : {"12,5", "12,50", "12,5000", "1,20,300", "1200,000", "1,2000", "1,,200",
                                 "0,200", "0.125,300", ",200", "12", "", "،1،200", "الف"}) {
    EXPECT_EQ(number(text), text);
  }
}

TEST(EqualsNoCase, Is_for_names) {
  EXPECT_TRUE(EqualsNoCase("MaxID", "maxid"));
  EXPECT_FALSE(EqualsNoCase("MaxID", "maxi"));
  EXPECT_EQ(LowerAscii("TblكGood"), "tblكgood");
}

}  // namespace
}  // namespace koru
