#include "platform/text/PersianWords.h"

#include <gtest/gtest.h>

#include <string>

namespace koru {
namespace {

constexpr const char* kName = "پيچ خودكار شش گوش";
constexpr const char* kCode = "AB-120";
constexpr const char* kBarcode = "6260100400116";

bool Finds(std::string_view typed) { return PersianWords(typed).AreIn({kName, kCode, kBarcode}); }

TEST(PersianWords, Without_words_every_text_is_found) {
  EXPECT_TRUE(PersianWords().IsEmpty());
  for (const char* const typed : {"", "   ", "\t", "\u200c", "\u00a0"}) {
    EXPECT_TRUE(PersianWords(typed).IsEmpty()) << typed;
    EXPECT_TRUE(Finds(typed)) << typed;
  }
}

TEST(PersianWords, A_word_is_found_anywhere_in_any_of_the_texts) {
  for (const char* const typed : {"خود", "شش گوش", "120", "6260100400116", "0116", "چ"})
    EXPECT_TRUE(Finds(typed)) << typed;
  EXPECT_FALSE(Finds("مهره"));
  EXPECT_FALSE(Finds("62601004001160"));
}

TEST(PersianWords, Each_word_must_be_in_some_text_in_any_order) {
  EXPECT_TRUE(Finds("گوش پيچ 6260"));
  EXPECT_TRUE(Finds("  0116   ab "));
  EXPECT_FALSE(Finds("گوش مهره"));
}

TEST(PersianWords, Letters_of_Arabic_and_Persian_keyboards_case_and_half_spaces_make_no_difference) {
  for (const char* const typed : {"پیچ", "خودکار", "خودكار", "خود\u200cکار", "ab-1", "AB-1"})
    EXPECT_TRUE(Finds(typed)) << typed;
  EXPECT_TRUE(PersianWords("ميله‌اي").AreIn({"کد میله‌ای"}));
}

TEST(PersianWords, Digits_of_every_keyboard_are_equal) {
  for (const char* const typed : {"۰۱۱۶", "٠١١٦", "0116", "۱۲۰"}) EXPECT_TRUE(Finds(typed)) << typed;
  EXPECT_TRUE(PersianWords("12").AreIn({"بسته ۱۲ تايي"}));
}

TEST(PersianWords, Long_texts_and_invalid_bytes_are_searched_too) {
  const std::string longText = std::string(5000, 'x') + "پايان";
  EXPECT_TRUE(PersianWords("پایان").AreIn({longText}));
  EXPECT_FALSE(PersianWords("آغاز").AreIn({longText}));
  EXPECT_TRUE(
      PersianWords("b").AreIn({"a\xff"
                               "b"}));
  EXPECT_FALSE(PersianWords("b").AreIn({"\xd8"}));
}

}  // namespace
}  // namespace koru
