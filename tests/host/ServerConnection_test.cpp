#include "host/ServerConnection.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

TEST(ServerConnection, The_fields_of_a_text_come_back_as_a_text_with_what_else_it_had) {
  const std::string text =
      "Provider=SQLOLEDB.1;Data Source=h,1433;Initial Catalog=Suite;User ID=u;Password=\"a;b\";Encrypt=yes";
  const ServerConnection read = ReadServerConnection(text);
  EXPECT_EQ(read.server, "h,1433");
  EXPECT_EQ(read.database, "Suite");
  EXPECT_EQ(read.login, "u");
  EXPECT_EQ(read.password, "a;b");
  EXPECT_FALSE(read.integrated);
  EXPECT_EQ(ConnectionTextOf(read), text);
}

TEST(ServerConnection, The_user_of_the_machine_needs_no_login) {
  ServerConnection fields =
      ReadServerConnection("Provider=SQLOLEDB.1;Data Source=h;Integrated Security=SSPI");
  EXPECT_TRUE(fields.integrated);
  fields.login = "u";
  EXPECT_EQ(ConnectionTextOf(fields), "Provider=SQLOLEDB.1;Data Source=h;Integrated Security=SSPI");
}

TEST(ServerConnection, A_password_is_asked_for_where_a_login_lacks_it) {
  EXPECT_TRUE(LacksPassword("Provider=SQLOLEDB.1;Data Source=h;User ID=u"));
  EXPECT_FALSE(LacksPassword("Provider=SQLOLEDB.1;Data Source=h;User ID=u;PWD=x"));
  EXPECT_FALSE(LacksPassword("Provider=SQLOLEDB.1;Data Source=h;Integrated Security=SSPI"));
  EXPECT_FALSE(LacksPassword("Provider=SQLite;Data Source=a.db"));
  EXPECT_FALSE(LacksPassword("nonsense"));
}

TEST(ServerConnection, What_is_stored_has_no_password_and_otherwise_stays_as_it_is) {
  EXPECT_EQ(WithoutPasswords("Provider=SQLite; Data Source='a.db'"), "Provider=SQLite; Data Source='a.db'");
  EXPECT_EQ(WithoutPasswords("Provider=X;pwd=\"p;q\";Data Source=\"a;b\""), "Provider=X;Data Source=\"a;b\"");
  EXPECT_EQ(WithoutPasswords("Provider=X;Password='p"), "0") << "what cannot be parsed may hold one";
}

TEST(ServerConnection, A_database_is_named_by_its_file_or_by_server_and_database) {
  EXPECT_EQ(NameOfDatabase("Provider=SQLite;Data Source=/a/b.db"), "/a/b.db");
  EXPECT_EQ(NameOfDatabase("Provider=SQLOLEDB.1;Data Source=h;Initial Catalog=Suite;Password=x"),
            "h / Suite");
}

}  // namespace
}  // namespace koru
