#include "search/PickedList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

SqlText Statement(const std::string& list) {
  return SqlText("Select Barcode from tblGood Where tblGood.BarCode in ") + PickedList(list) +
         " and Notes like '%'";
}

TEST(PickedList, Is_copied_unchanged_with_every_barcode_as_typed_text) {
  for (const std::string list :
       {"('','100')", "('')", "( '' ,'30''0', 'كتاب' )", "()", "", "('a','''')", "(('a'))"}) {
    EXPECT_EQ(PickedList(list).Text(), list);
    EXPECT_NO_THROW(CheckTypedSpans(Statement(list))) << list;
  }
  const SqlText sql = PickedList("('','10''0')");
  std::vector<std::string> typed;
  for (const auto& span : sql.TypedSpans())
    typed.push_back(sql.Text().substr(span.begin, span.end - span.begin));
  EXPECT_EQ(typed, (std::vector<std::string>{"", "10''0"}));
}

TEST(PickedList, Of_anything_but_literals_commas_and_parentheses_is_refused_as_a_broken_statement) {
  for (const std::string list : {"('a') or 1=1", "(100)", "(select Barcode from tblGood)", "('a'", "('a",
                                 "('a'); delete tblGood", "'", "('a')--", "('a')/**/", "('a' || 'b')", "(a)",
                                 "(N'a')", "(@p)", "(?)", "('a',\n'b')", "(\"a\")", "([a])", "('a')؛"}) {
    EXPECT_EQ(PickedList(list).Text(), list);
    if (list == "('a'") continue;  // a missing parenthesis is the server's to refuse
    EXPECT_THROW(CheckTypedSpans(Statement(list)), DatabaseError) << list;
  }
}

}  // namespace
}  // namespace koru
