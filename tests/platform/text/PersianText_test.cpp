#include "platform/text/PersianText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace koru {
namespace {

TEST(PersianText, Both_kafs_and_yehs_all_digits_and_the_non_joiner_are_one) {
  EXPECT_EQ(ComparePersian("كتاب", "کتاب"), 0);
  EXPECT_EQ(ComparePersian("علي", "علی"), 0);
  EXPECT_EQ(ComparePersian("كد ۱۲٣", "کد 123"), 0);
  EXPECT_EQ(ComparePersian("مي‌شود", "ميشود"), 0);
  EXPECT_EQ(ComparePersian("Abc", "aBC"), 0);
  EXPECT_EQ(ComparePersian("a  ", "a"), 0) << "blanks at the end";
  EXPECT_NE(ComparePersian(" a", "a"), 0) << "blanks before count";
  EXPECT_NE(ComparePersian("كتاب", "كتابها"), 0);
  EXPECT_EQ(ComparePersian("", "  "), 0);
}

TEST(PersianText, Lists_are_in_the_order_of_the_alphabet) {
  std::vector<std::string> words = {"یخ", "گل",    "لاله",  "كتاب", "پنير", "تاج", "بادام",
                                    "آب", "Zebra", "apple", "7",    "چاي",  "جعبه"};
  std::sort(words.begin(), words.end(),
            [](const std::string& a, const std::string& b) { return ComparePersian(a, b) < 0; });
  EXPECT_EQ(words, (std::vector<std::string>{"7", "apple", "Zebra", "آب", "بادام", "پنير", "تاج", "جعبه",
                                             "چاي", "كتاب", "گل", "لاله", "یخ"}));
}

TEST(PersianText, Sort_keys_give_the_order_of_the_comparison) {
  const std::vector<std::string> texts = {
      "",  "a",      "A ", "ab",       "كتاب",  "کتاب", "كتاب ها", "كتاب‌ها",
      "پ", "ب",      "ت",  "۱",        "1",     "٢",    "😀",       "é",
      "É", "ء",      "گ",  "ک",        "ل",     "\xFF", " a",      "~",
      "ـ", "\u06FF", "ﷲ",  "a \u200c", "\u200c"};
  for (const auto& a : texts) {
    for (const auto& b : texts) {
      const int compared = ComparePersian(a, b);
      const int keys = PersianSortKey(a).compare(PersianSortKey(b));
      EXPECT_EQ(compared < 0, keys < 0) << a << " / " << b;
      EXPECT_EQ(compared == 0, keys == 0) << a << " / " << b;
      EXPECT_EQ(compared == 0, FoldPersian(a) == FoldPersian(b)) << a << " / " << b;
    }
  }
}

TEST(PersianText, Folding_is_for_looking_up) {
  EXPECT_EQ(FoldPersian("كالاي  Abc-۱۲ "), "کالای  abc-12");
  EXPECT_EQ(FoldPersian(FoldPersian("ي‌ك")), "یک");
}

}  // namespace
}  // namespace koru
