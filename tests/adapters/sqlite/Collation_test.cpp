#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class Collation : public testing::Test {
 protected:
  Recordset Open(const SqlText& statement) { return connection_->Open(statement); }
  std::size_t Count(const SqlText& statement) { return Open(statement).RecordCount(); }

  test::TestFile database_;
  SqliteConnector connector_;
  std::unique_ptr<Database> connection_ = connector_.Connect(database_.ConnectionText());
};

TEST_F(Collation, Letters_of_either_keyboard_case_digits_joiners_and_blanks_at_the_end_are_equal) {
  database_.Execute("insert into tblUser (ID, FullName) values (1, 'علي كريمي‌پور ABC ۱۲')");
  EXPECT_EQ(Count(SqlText("select ID from tblUser where FullName='علی کریمیپور abc 12   '")), 1U);
  EXPECT_EQ(Count(SqlText("select ID from tblUser where FullName='علی کریمیپور abc 13'")), 0U);
  EXPECT_EQ(Count(SqlText("select ID from tblUser where LTrim(RTrim(FullName))='علی کریمیپور abc ١٢'")), 1U);
  EXPECT_EQ(Count(SqlText("select ID from tblUser where isnull(FullName,'')=N'علی کریمیپور abc ١٢'")), 1U);
  EXPECT_EQ(Count(SqlText("select ID from tblUser where FullName like '%کریمی%'")), 1U);
  EXPECT_EQ(Count(SqlText("select ID from tblUser where FullName like '%كریمو%'")), 0U);
}

TEST_F(Collation, What_is_stored_is_given_back_as_it_was_written) {
  database_.Execute("insert into tblUser (ID, FullName) values (1, 'علي كريمي‌پور ۱۲ ')");
  Recordset users =
      Open(SqlText("select FullName from tblUser where FullName='علی کریمی‌پور 12'"));
  ASSERT_EQ(users.RecordCount(), 1U);
  EXPECT_EQ(users.Field("fullname").Text(), "علي كريمي‌پور ۱۲ ");
}

TEST_F(Collation, Lists_follow_the_Persian_alphabet) {
  for (const char* name : {"گلي", "پري", "كاوه", "بهار", "تارا", "10", "لاله"}) {
    connection_->Open(SqlText("insert into tblUser (FullName) values ('") + Typed(name) + "')");
  }
  Recordset users = Open(SqlText("select ID,FullName from tbluser order by FullName"));
  std::string order;
  for (; !users.AtEnd(); users.MoveNext()) order += users.Field("FullName").Text() + " ";
  EXPECT_EQ(order, "10 بهار پري تارا كاوه گلي لاله ");
}

TEST_F(Collation, Ranges_of_texts_follow_the_same_order) {
  database_.Execute("insert into tblInventoryCounting (ManualCode) values ('ب'), ('پ'), ('ت'), (NULL)");
  EXPECT_EQ(Count(SqlText("select ID from tblInventoryCounting where ManualCode >='پ' and ManualCode <='ت'")),
            2U);
}

TEST_F(Collation, Equal_barcodes_of_one_good_are_summed_up_together) {
  database_.Execute(
      "insert into tblInventoryCountingDetail (CountingID, Barcode, ScaleID, ContradictionCounting) values "
      "(1, 'Ab-۱', 3, -2), (1, 'aB-1 ', 3, -5), (1, 'ab-2', 3, -1)");
  Recordset sums = Open(SqlText(
      "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
      "ContradictionCounting < 0 and CountingID=1 Group By Barcode,ScaleID"));
  ASSERT_EQ(sums.RecordCount(), 2U);
  EXPECT_EQ(sums.Field("Qty").Number(), 7);
}

TEST_F(Collation, A_like_over_NULL_finds_nothing) {
  database_.Execute("insert into tblInventoryCounting (Notes) values (NULL), ('')");
  EXPECT_EQ(Count(SqlText("select ID from tblInventoryCounting where Notes like '%'")), 1U);
  EXPECT_EQ(Count(SqlText("select ID from tblInventoryCounting where Notes like NULL")), 0U);
}

}  // namespace
}  // namespace koru
