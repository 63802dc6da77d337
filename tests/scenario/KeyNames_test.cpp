#include "scenario/KeyNames.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

void ExpectKey(std::string_view name, int key, int shift) {
  const auto press = ParseKey(name);
  ASSERT_TRUE(press.has_value()) << name;
  EXPECT_EQ(press->key, key) << name;
  EXPECT_EQ(press->shift, shift) << name;
}

TEST(KeyNames, A_key_is_read_with_what_is_held_down) {
  ExpectKey("F1", 112, 0);
  ExpectKey("f12", 123, 0);
  ExpectKey("Delete", 46, 0);
  ExpectKey("s", 83, 0);
  ExpectKey("7", 55, 0);
  ExpectKey("Ctrl+S", 83, 2);
  ExpectKey("Shift+Ctrl+Alt+Enter", 13, 7);
  ExpectKey("Ctrl+Shift+Delete", 46, 3);
  ExpectKey("Ctrl+Plus", 107, 2);
  ExpectKey("PageDown", 34, 0);
}

TEST(KeyNames, What_is_no_key_is_refused) {
  for (const std::string_view name : {"", "F0", "F13", "F1x", "Del", "Ctrl+", "Ctrl+Ctrl+S", "ي", "+"}) {
    EXPECT_FALSE(ParseKey(name).has_value()) << name;
  }
}

}  // namespace
}  // namespace koru
