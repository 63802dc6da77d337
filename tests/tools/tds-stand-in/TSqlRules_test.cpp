#include "tools/tds-stand-in/TSqlRules.h"

#include <gtest/gtest.h>

namespace koru::test {
namespace {

std::string Findings(const std::string& batch) {
  std::string all;
  for (const std::string& finding : BrokenRules(batch)) all += finding + "\n";
  return all;
}

TEST(TSqlRules, What_the_server_takes_is_taken) {
  for (const char* batch :
       {"select isnull(a,'') as b from [T x] where c like '%y%' -- فارسي", "delete T where id=1;",
        "insert into T (A,B) values (1,N'علي'),(2,'it''s')",
        "set identity_insert T on insert into T (ID,A) values (1,2) set identity_insert T off",
        "create table T (ID int not null identity(1,1) primary key, A nvarchar(max) null, B float null, C "
        "bit not "
        "null default 0, D as ltrim(A) persisted, primary key (A, B))",
        "update T set A=(B+1),C=(case when ID=1 then 1 else 0 end),D=(select max(ID) as M from U where ID=1)",
        "select A from T where (ID=1) and (A=2 or (B=3)) and C in (1,(2))",
        "create view V as select top 1 A from T order by A",
        "create procedure P @a int as begin set nocount on return 0 end"}) {
    EXPECT_EQ(Findings(batch), "") << batch;
  }
}

TEST(TSqlRules, What_the_server_would_refuse_is_found) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "an empty batch\n"},
      {"select 'a", "never closed: 'a\n"},
      {"select (1", "a parenthesis that is never closed\n"},
      {"select 1)", "a parenthesis that closes nothing\n"},
      {"select 'علي'", "not national: 'علي'\n"},
      {"select 1; select 2", "more than one statement\n"},
      {"select a || b from T", "not the server's: ||\n"},
      {"select a from T limit 1", "not the server's: limit\n"},
      {"drop table if not exists T", "not the server's: if not exists\n"},
      {"insert or ignore into T (A) values (1)", "not the server's: insert or\n"},
      {"set nocount on create view V as select 1 as A", "a creation that does not begin its batch\n"},
      {"create view V as select A from T order by A", "a view that is sorted without top\n"},
      {"create view V as select A from T create view W as select 1 as A",
       "more than one creation in a batch\n"},
      {"insert into T (A,B) values (1,2),(3)", "rows of different lengths\n"},
      {"insert into T (A,B) values (1,2,3)", "not as many values as columns\n"},
      {"set identity_insert T on insert into T (ID) values (1)",
       "identity_insert of t is never switched off\n"},
      {"set identity_insert T on insert into T (A) values (1) set identity_insert T off",
       "identity_insert of t serves no insert of its key\n"},
      {"update T set A=(ID=1)", "a comparison is no value: =\n"},
      {"select (A<2) as B from T", "a comparison is no value: <\n"},
      {"insert into T (A,B) values (2,(1=1))", "a comparison is no value: =\n"},
      {"create table T (ID integer not null)", "not the server's: integer\nno type of the server's: id\n"},
      {"create table T (ID int)", "neither null nor not null: id\n"},
      {"create table T (A nvarchar null)", "no length of a\n"},
      {"create table T (A nvarchar(4001) null)", "no length of a\n"},
      {"create table T (A float not null identity(1,1))", "an identity that is no whole number: a\n"},
      {"create table T (A int null primary key)", "a key that may be NULL: a\n"},
      {"create table T (A int null collate KORU)",
       "unknown in column a: collate\nunknown in column a: koru\n"},
      {"create table T (A int null, a int null)", "two columns a\n"},
  };
  for (const auto& [batch, findings] : cases) EXPECT_EQ(Findings(batch), findings) << batch;
}

TEST(TSqlRules, A_thousand_rows_are_the_most) {
  std::string batch = "insert into T (A) values (1)";
  for (int row = 2; row <= 1000; ++row) batch += ",(" + std::to_string(row) + ")";
  EXPECT_EQ(Findings(batch), "");
  EXPECT_EQ(Findings(batch + ",(1001)"), "more than 1000 rows in values\n");
}

}  // namespace
}  // namespace koru::test
