#include "platform/text/TabFields.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

using Fields = std::vector<std::string>;

TEST(TabFields, Any_text_survives_being_written_and_read) {
  const Fields texts = {"figure", "", "كالا\t1", "a\nb\\t", "\\", "\r\n", std::string("a\0b", 3)};
  std::string line = texts.front();
  for (std::size_t field = 1; field < texts.size(); ++field) AppendTabField(line, texts[field]);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  EXPECT_EQ(TabFields(line), texts);
}

TEST(TabFields, A_line_without_tabs_is_one_field) {
  EXPECT_EQ(TabFields(""), (Fields{""}));
  EXPECT_EQ(TabFields("x"), (Fields{"x"}));
  EXPECT_EQ(TabFields("\t"), (Fields{"", ""}));
}

TEST(TabFields, Escapes_that_are_cut_off_or_unknown_are_refused) {
  EXPECT_FALSE(TabFields("a\\"));
  EXPECT_FALSE(TabFields("a\\\tb"));
  EXPECT_FALSE(TabFields("a\\x"));
}

}  // namespace
}  // namespace koru
