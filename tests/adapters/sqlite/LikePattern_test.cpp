#include "adapters/sqlite/LikePattern.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

struct Case {
  const char* text;
  const char* pattern;
  bool matches;
};

class Like : public testing::TestWithParam<Case> {};

TEST_P(Like, Matches_as_the_suites_server_does) {
  EXPECT_EQ(LikePattern(GetParam().pattern).Matches(GetParam().text), GetParam().matches)
      << '"' << GetParam().text << "\" like \"" << GetParam().pattern << '"';
}

INSTANTIATE_TEST_SUITE_P(
    Wildcards, Like,
    testing::Values(Case{"abc", "abc", true}, Case{"abc", "ab", false}, Case{"abc", "a%", true},
                    Case{"abc", "%c", true}, Case{"abc", "%b%", true}, Case{"abc", "a_c", true},
                    Case{"ac", "a_c", false}, Case{"", "%", true}, Case{"", "", true}, Case{"", "_", false},
                    Case{"aXbXc", "a%X_", true}, Case{"mississippi", "m%iss%ip%i", true},
                    Case{"abcabd", "%abd", true}, Case{"a*c", "a*c", true}, Case{"abc", "a*c", false}));

INSTANTIATE_TEST_SUITE_P(
    Sets, Like,
    testing::Values(Case{"b", "[abc]", true}, Case{"d", "[abc]", false}, Case{"d", "[^abc]", true},
                    Case{"b", "[^abc]", false}, Case{"5", "[0-9]", true}, Case{"x", "[0-9]", false},
                    Case{"-", "[a-]", true}, Case{"-", "[-a]", true}, Case{"50%", "50[%]", true},
                    Case{"500", "50[%]", false}, Case{"a_b", "a[_]b", true}, Case{"axb", "a[_]b", false},
                    Case{"[", "[[]", true}, Case{"]", "]", true}, Case{"[ab", "[ab", false},
                    Case{"[", "[", false}, Case{"پ", "[ب-ت]", true}, Case{"ث", "[ب-ت]", false},
                    Case{"", "[a]", false}));

INSTANTIATE_TEST_SUITE_P(PersianKeyboards, Like,
                         testing::Values(Case{"كاشي", "%کاشی%", true}, Case{"کاشی", "كاش_", true},
                                         Case{"مي‌شود", "ميشود", true},
                                         Case{"میشود", "می‌شود", true}, Case{"۱۲۳", "%٢%", true},
                                         Case{"12345", "۱۲%", true}, Case{"ABC", "%b%", true},
                                         Case{"ÀÉ", "àé", true}, Case{"😀 گل", "_ گل", true},
                                         Case{"ك", "[ک]", true}, Case{"٣", "[1-5]", true}));

INSTANTIATE_TEST_SUITE_P(Blanks, Like,
                         testing::Values(Case{"abc  ", "abc", true}, Case{"abc", "abc ", false},
                                         Case{"abc ", "abc ", true}, Case{" abc", "abc", false},
                                         Case{"abc ", "%c", true}, Case{"abc", "%c %", false},
                                         Case{"   ", "", true}));

TEST(LikePattern, Many_wildcards_over_a_long_text_take_no_noticeable_time) {
  const std::string text(4000, 'a');
  EXPECT_FALSE(LikePattern("%a%a%a%a%a%a%a%a%a%a%b").Matches(text));
  EXPECT_TRUE(LikePattern("%a%a%a%a%a%a%a%a%a%a%").Matches(text));
}

}  // namespace
}  // namespace koru
