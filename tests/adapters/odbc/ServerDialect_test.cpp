#include "adapters/odbc/ServerDialect.h"

#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

TEST(ServerDialect, Statements_are_sent_to_the_letter) {
  for (const char* statement :
       {"select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting where Code is not Null ",
        "Select top 1 Name from vwPelinCompany", "delete  T where a='it''s' and b=N'x' -- c",
        "select [a]]b];", "create procedure p @a int as return @a", ""}) {
    EXPECT_EQ(ServerStatement(statement), statement);
  }
}

TEST(ServerDialect, Only_literals_with_characters_beyond_ASCII_become_national) {
  EXPECT_EQ(ServerStatement("update T set a='علی', b='x', c='it''s \u200C' where d like '%ي%'"),
            "update T set a=N'علی', b='x', c=N'it''s \u200C' where d like N'%ي%'");
  EXPECT_EQ(ServerStatement("select N'علی', n'ک' as [علی] -- 'علی'"),
            "select N'علی', n'ک' as [علی] -- 'علی'");
  EXPECT_EQ(ServerStatement("'🙂'"), "N'🙂'");
}

TEST(ServerDialect, What_is_not_one_whole_statement_is_refused) {
  for (const std::string& statement :
       {std::string("select 1; delete T"), std::string("select 'a"), std::string("select 1 /* x"),
        std::string("select ?"), std::string("select [a"), std::string("select '\0'", 10)}) {
    EXPECT_THROW(static_cast<void>(ServerStatement(statement)), DatabaseError) << statement;
  }
}

}  // namespace
}  // namespace koru
