#include "adapters/sqlite/NormalizedStatement.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

TEST(NormalizedStatement, Statements_that_differ_in_literals_alone_have_one_text) {
  const NormalizedStatement a = Normalize("Insert Into T (A,B,C) Values(1,'x',2.5)");
  const NormalizedStatement b = Normalize("Insert Into T (A,B,C) Values(77,N'سلام',0.000001)");
  EXPECT_EQ(a.text, "Insert Into T (A,B,C) Values(?,'?',?)");
  EXPECT_EQ(a.text, b.text);
}

TEST(NormalizedStatement, A_statement_that_begins_as_an_earlier_one_is_read_in_the_same_way) {
  for (const std::string earlier : {"insert into T (A,B) values(1,'x')", "select A from [T(] where B in (1)",
                                    "select A from T -- (\n where B=9", "(1)", "select 1"}) {
    for (const std::string statement :
         {"insert into T (A,B) values('y',2)", "insert into T (A,B) values( N'it''s' ,-3)",
          "insert into T (A,B) values(NULL , /* ( */ 4);", "insert into T (A,B) values(((5),6)",
          "insert  into T (A,B) values(7)", "insert into T (A,B) values", "select A from [T(] where B=8",
          "select A from [T(] where B in (A,'10')", "select A from T -- (\n where C in (9)", "(N'3')",
          "(("}) {
      StatementLead lead;
      static_cast<void>(Normalize(earlier, lead));
      const NormalizedStatement known = Normalize(statement, lead);
      const NormalizedStatement read = Normalize(statement);
      EXPECT_EQ(known.text, read.text) << statement << " after " << earlier;
      EXPECT_EQ(known.literals, read.literals) << statement << " after " << earlier;
    }
  }
}

TEST(NormalizedStatement, A_statement_after_a_known_beginning_is_refused_as_well) {
  StatementLead lead;
  static_cast<void>(Normalize("insert into T values(1)", lead));
  EXPECT_EQ(lead.text, "insert into T values(");
  EXPECT_THROW((void)Normalize("insert into T values('1)", lead), DatabaseError);
  EXPECT_THROW((void)Normalize("insert into T values(2); delete T", lead), DatabaseError);
  EXPECT_THROW((void)Normalize(std::string("insert into T values('\0')", 25), lead), DatabaseError);
}

TEST(NormalizedStatement, Number_literals_and_text_literals_differ) {
  EXPECT_NE(Normalize("select * from T where A=1").text, Normalize("select * from T where A='1'").text);
}

TEST(NormalizedStatement, Whole_numbers_stay_whole_and_decimals_lose_nothing) {
  const NormalizedStatement normalized =
      Normalize("select 1, 9007199254740993, 0.1, 1E+15, 99999999999999999999");
  ASSERT_EQ(normalized.literals.size(), 5U);
  EXPECT_EQ(std::get<std::int64_t>(normalized.literals[0]), 1);
  EXPECT_EQ(std::get<std::int64_t>(normalized.literals[1]), 9007199254740993);
  EXPECT_EQ(std::get<double>(normalized.literals[2]), 0.1);
  EXPECT_EQ(std::get<double>(normalized.literals[3]), 1e15);
  EXPECT_EQ(std::get<double>(normalized.literals[4]), 1e20);
}

TEST(NormalizedStatement, Doubled_apostrophes_become_one_and_stay_inside_their_text) {
  const NormalizedStatement normalized = Normalize("update T set A='O''Neil; delete T --', B='''' , C=''");
  EXPECT_EQ(normalized.text, "update T set A='?', B='?' , C='?'");
  EXPECT_EQ(std::get<std::string>(normalized.literals[0]), "O'Neil; delete T --");
  EXPECT_EQ(std::get<std::string>(normalized.literals[1]), "'");
  EXPECT_EQ(std::get<std::string>(normalized.literals[2]), "");
}

TEST(NormalizedStatement, Texts_that_touch_each_other_stay_two_literals) {
  const NormalizedStatement normalized = Normalize("select ''N'x'");
  EXPECT_EQ(normalized.text, "select '?' '?'");
  EXPECT_EQ(normalized.literals, (std::vector<Literal>{"", "x"}));
}

TEST(NormalizedStatement, White_space_and_comments_do_not_count) {
  EXPECT_EQ(Normalize("select  A\r\n from\tT /* all */ where--why\n B=1 ").text, "select A from T where B=?");
}

TEST(NormalizedStatement, A_second_statement_is_refused_and_a_last_semicolon_is_not) {
  EXPECT_EQ(Normalize("delete T where A=1; \r\n").text, "delete T where A=?");
  EXPECT_THROW((void)Normalize("delete T where A=1; delete T"), DatabaseError);
  EXPECT_THROW((void)Normalize("delete T;;"), DatabaseError);
  EXPECT_THROW((void)Normalize("delete T; -- really"), DatabaseError);
}

TEST(NormalizedStatement, What_is_never_closed_is_refused_with_the_whole_statement) {
  for (const std::string statement :
       {"select * from T where A='it's'", "select [A from T", "select 1 /* why"}) {
    try {
      (void)Normalize(statement);
      ADD_FAILURE() << statement;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Statement(), statement);
      EXPECT_EQ(error.Code(), kBrokenStatement);
    }
  }
}

TEST(NormalizedStatement, Parameters_without_a_value_and_NUL_characters_are_refused) {
  EXPECT_THROW((void)Normalize("select * from T where A=?"), DatabaseError);
  EXPECT_THROW((void)Normalize("select * from T where A=@id"), DatabaseError);
  EXPECT_THROW((void)Normalize(std::string("select 'a\0b'", 12)), DatabaseError);
}

}  // namespace
}  // namespace koru
