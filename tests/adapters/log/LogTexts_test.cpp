#include "adapters/log/LogTexts.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

SqlText NameIs(std::string_view typed) {
  return SqlText("Select * from tblGood Where Name = '") + Typed(typed) + "' and ID=12";
}

TEST(MaskedTexts, Keep_their_shape) {
  EXPECT_EQ(Masked("Tea 25 g, 'dark'"), "xxx 99 x, 'xxxx'");
  EXPECT_EQ(Masked("چای سبز"), "xxx xxx");
  EXPECT_EQ(Masked(""), "");
}

TEST(MaskedTexts, Are_the_typed_ones_of_a_statement_alone) {
  EXPECT_EQ(MaskedStatement(NameIs("Tea 25") + " and Notes='" + Typed("x''y") + "'"),
            "Select * from tblGood Where Name = 'xxx 99' and ID=12 and Notes='x''x'");
  EXPECT_EQ(MaskedStatement(SqlText("Select 'fixed' as A")), "Select 'fixed' as A");
}

TEST(MaskedTexts, Are_also_masked_where_the_server_repeats_them) {
  EXPECT_EQ(MaskedError("Conversion failed when converting the varchar value 'Green tea' to int.",
                        NameIs("Green tea")),
            "Conversion failed when converting the varchar value 'xxxxx xxx' to int.");
  EXPECT_EQ(MaskedError("Truncated value: 'چای سب'.", NameIs("چای سبز")), "Truncated value: 'xxx xx'.");
  EXPECT_EQ(MaskedError("Incorrect syntax near 'G1', G12.", NameIs("G1")),
            "Incorrect syntax near 'x9', G12.");
}

TEST(ConnectionTexts, Are_logged_without_passwords) {
  EXPECT_EQ(ConnectionForLog("Provider=SQLOLEDB.1;Password=\"a;b\";User ID=sa;pwd=c"),
            "Provider=SQLOLEDB.1;Password=***;User ID=sa;pwd=***;");
  EXPECT_EQ(ConnectionForLog("Password='open"), "(a connection text that cannot be read)");
  EXPECT_EQ(ErrorWithoutPasswords("login with a;bcde failed", "Provider=SQLOLEDB.1;Password=\"a;bcde\""),
            "login with *** failed");
  EXPECT_EQ(ErrorWithoutPasswords("login with a;b failed", "Provider=SQLOLEDB.1;Password=\"a;b\""), "***");
  EXPECT_EQ(ErrorWithoutPasswords("login failed", "Provider=SQLOLEDB.1"), "login failed");
}

}  // namespace
}  // namespace koru
