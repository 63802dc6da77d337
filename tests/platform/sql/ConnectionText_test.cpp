#include "platform/sql/ConnectionText.h"

#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

TEST(ConnectionText, Keys_are_found_regardless_of_case_and_blanks) {
  const auto text = ConnectionText::Parse(" Provider = SQLite ; Data Source=/a b/c.db;;User ID=ali");
  EXPECT_EQ(text.Get("provider"), "SQLite");
  EXPECT_EQ(text.Get("DATA SOURCE"), "/a b/c.db");
  EXPECT_TRUE(text.Has("User ID"));
  EXPECT_FALSE(text.Has("Password"));
  EXPECT_EQ(text.Get("Password"), "");
}

TEST(ConnectionText, A_quoted_value_may_hold_separators) {
  const auto text = ConnectionText::Parse("Data Source=\"a;b=c\";Password='it''s;';X=1");
  EXPECT_EQ(text.Get("Data Source"), "a;b=c");
  EXPECT_EQ(text.Get("Password"), "it's;");
  EXPECT_EQ(text.Get("X"), "1");
}

TEST(ConnectionText, Any_value_can_be_written_and_read_back) {
  for (const char* value : {"", " a ", "a;b=c", "\"", "it's \"x\";", "انبار\\1.db"}) {
    EXPECT_EQ(ConnectionText::Parse("X=1;Y=" + QuotedForConnection(value) + ";Z=2").Get("Y"), value);
  }
}

TEST(ConnectionText, Shows_no_password) {
  const auto text = ConnectionText::Parse("Provider=SQLOLEDB.1;User ID=ali;Password=secret;PWD=secret2");
  EXPECT_EQ(text.WithoutPassword(), "Provider=SQLOLEDB.1;User ID=ali;Password=***;PWD=***;");
}

TEST(ConnectionText, What_cannot_be_read_is_one_clear_error_without_the_text) {
  for (const char* broken : {"0", "Provider", "a=1;secret", "Password=\"secret"}) {
    try {
      static_cast<void>(ConnectionText::Parse(broken));
      ADD_FAILURE() << broken;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.ServerText().find("secret"), std::string::npos);
      EXPECT_EQ(error.ServerText().find("رشته اتصال خوانا نيست"), 0U);
    }
  }
}

}  // namespace
}  // namespace koru
