#include "adapters/odbc/WideText.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

TEST(WideText, Texts_become_UTF16_and_back) {
  for (const char* text : {"", "abc", "شمارش انبار\u200Cها\u00A0", "𐎠🙂é", "\uFFFF\U0010FFFF"}) {
    EXPECT_EQ(ToUtf8(ToUtf16(text)), text);
  }
  EXPECT_EQ(ToUtf16("ی🙂"), u"\u06CC\xD83D\xDE42");
}

TEST(WideText, What_is_no_text_becomes_the_replacement_character) {
  EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(ToUtf8(std::u16string(1, static_cast<char16_t>(0xD83D))), "\uFFFD");
  EXPECT_EQ(ToUtf8(std::u16string{u'a', static_cast<char16_t>(0xDE42), u'b'}), "a\uFFFDb");
}

}  // namespace
}  // namespace koru
