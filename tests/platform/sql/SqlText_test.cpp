#include "platform/sql/SqlText.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

using namespace std::chrono;

SqlText Between(std::string_view typed) {
  SqlText sql("update t set ManualCode='");
  sql += Typed(typed);
  sql += "',Notes='x' where id=";
  sql += 7;
  return sql;
}

TEST(SqlText, Is_built_by_concatenation) {
  SqlText sql("select * from ");
  sql += SqlName("tblInventory");
  sql += " where ID=";
  sql += 12;
  sql += " and Qty>=";
  sql += 2.50;
  sql += " and ReceiveDate>='";
  sql += 2025y / 3 / 21;
  sql += "' and ManualCode='";
  sql += Typed("A-1");
  sql += "'";
  EXPECT_EQ(sql.Text(),
            "select * from tblInventory where ID=12 and Qty>=2.5 and ReceiveDate>='2025-03-21' and "
            "ManualCode='A-1'");
  ASSERT_EQ(sql.TypedSpans().size(), 1U);
  EXPECT_EQ(sql.Text().substr(sql.TypedSpans()[0].begin, 3), "A-1");
}

TEST(SqlText, Keeps_the_spans_of_a_text_that_is_appended) {
  const SqlText all = SqlText("select * from tblGood Where ") + Between("ab'c");
  ASSERT_EQ(all.TypedSpans().size(), 1U);
  const auto span = all.TypedSpans()[0];
  EXPECT_EQ(all.Text().substr(span.begin, span.end - span.begin), "ab'c");
  EXPECT_THROW(CheckTypedSpans(all), DatabaseError);
}

TEST(SqlText, Can_be_appended_to_itself) {
  SqlText text = SqlText("'") + Typed("a") + "' ";
  text += text;
  EXPECT_EQ(text.Text(), "'a' 'a' ");
  ASSERT_EQ(text.TypedSpans().size(), 2U);
  EXPECT_EQ(text.TypedSpans()[1].begin, 5U);
}

TEST(SqlText, A_name_is_letters_digits_and_underscores) {
  EXPECT_THROW(SqlName("a b"), std::invalid_argument);
  EXPECT_THROW(SqlName("t;drop"), std::invalid_argument);
  EXPECT_THROW(SqlName(""), std::invalid_argument);
  EXPECT_NO_THROW(SqlName("vwGoodGroup_CodeMajor"));
}

TEST(TypedSpans, Stay_inside_their_literal) {
  for (const char* typed : {"", "A-1", "كتاب", "-- x", "/* x */", "; drop table t", "%", "[a]", "\"", "’",
                            "ʼ", "a''b", "''", "\\", "x''y''z", "\n"}) {
    EXPECT_NO_THROW(CheckTypedSpans(Between(typed))) << typed;
  }
}

TEST(TypedSpans, That_leave_their_literal_are_refused_like_a_broken_statement) {
  for (const char* typed : {"'", "a'", "'a", "a'b", "'''", "a'''", "x' or '1'='1", "x';delete tblGood--",
                            "'--", "' /*", "','", "a','b", "'''''", "x'' or '1'='1"}) {
    try {
      CheckTypedSpans(Between(typed));
      ADD_FAILURE() << "not refused: " << typed;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Code(), kBrokenStatement);
      EXPECT_EQ(error.Statement(), Between(typed).Text());
      EXPECT_EQ(error.ServerText().find(typed + std::string("!")), std::string::npos);
    }
  }
}

TEST(TypedSpans, Two_neighbours_cannot_make_an_apostrophe_together) {
  SqlText sql("select '");
  sql += Typed("a'");
  sql += Typed("'b");
  sql += "'";
  EXPECT_THROW(CheckTypedSpans(sql), DatabaseError);
}

TEST(TypedSpans, Outside_of_a_literal_are_refused) {
  SqlText bare("select * from t where id=");
  bare += Typed("1");
  EXPECT_THROW(CheckTypedSpans(bare), DatabaseError);
  SqlText comment("select 1 /* ");
  comment += Typed("x");
  comment += " */";
  EXPECT_THROW(CheckTypedSpans(comment), DatabaseError);
  SqlText open("select '");
  open += Typed("x");
  EXPECT_THROW(CheckTypedSpans(open), DatabaseError);
}

TEST(TypedSpans, A_zero_byte_cannot_cut_a_statement_short) {
  EXPECT_THROW(CheckTypedSpans(Between(std::string_view("a\0b", 3))), DatabaseError);
}

TEST(TypedSpans, In_several_literals_are_each_checked) {
  SqlText sql("select '");
  sql += Typed("fine");
  sql += "','";
  sql += Typed("al''so fine");
  sql += "',N'";
  sql += Typed("كالا");
  sql += "'";
  EXPECT_NO_THROW(CheckTypedSpans(sql));
  sql += ",'";
  sql += Typed("not'");
  sql += "'";
  EXPECT_THROW(CheckTypedSpans(sql), DatabaseError);
}

}  // namespace
}  // namespace koru
