#include "services/FixQuote.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

TEST(FixQuote, Doubles_every_apostrophe) {
  EXPECT_EQ(FixQuote(""), "");
  EXPECT_EQ(FixQuote("''"), "''''");
  EXPECT_EQ(FixQuote("O'Neil"), "O''Neil");
  EXPECT_EQ(FixQuote("'"), "''");
  EXPECT_EQ(FixQuote("شمارش ‘x’ \"y\""), "شمارش ‘x’ \"y\"") << "no other quote is one";
}

}  // namespace
}  // namespace koru
