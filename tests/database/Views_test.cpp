#include <gtest/gtest.h>

#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

void FillOneCounting(TestFile& database) {
  database.Execute(
      "insert into tblInventory (ID, Name) values (3, 'انبار');"
      "insert into tblUser (ID, FullName) values (1, 'يك'), (2, 'دو');"
      "insert into tblGood (Barcode, Code, Name) values ('b1', 'g1', 'قند');"
      "insert into tblGoodScale (ID, Name, ScaleToBaseParent) values (1, 'عدد', 1);"
      "insert into tblInventoryCounting (ID, InventoryID, CreatorID, CounterEmployeeID1, CounterConfirmerID)"
      " values (7, 3, 1, 2, 99)");
}

}  // namespace

TEST(CountingView, Shows_names_where_there_are_people_and_nothing_where_not) {
  TestFile database;
  FillOneCounting(database);
  EXPECT_EQ(database.Rows(
                "select ID, Code, InvName, FullName, Counter1, Counter2, Accepter from vwInventoryCounting"),
            "7|NULL|انبار|يك|دو|NULL|NULL\n");
}

TEST(CountingView, Lists_a_counting_whose_store_and_creator_are_gone) {
  TestFile database;
  FillOneCounting(database);
  database.Execute("delete from tblInventory; delete from tblUser");
  EXPECT_EQ(database.Rows("select ID, InvName, FullName from vwInventoryCounting"), "7|NULL|NULL\n");
}

TEST(PrintView, A_line_is_a_shortage_or_a_surplus_and_its_amounts_take_the_rounded_rate) {
  TestFile database;
  FillOneCounting(database);
  database.Execute(
      "insert into tblInventoryCountingDetail (CountingID, Barcode, RowNumber, ScaleID, AcceptedCounting,"
      " SystemCounting, ContradictionCounting, BaseValue) values"
      " (7, 'b1', 1, 1, 4, 6.5, -2.5, 9.6), (7, 'b1', 2, 1, 8, 5, 3, 100), (7, 'b1', 3, 1, 5, 5, null, "
      "null)");
  EXPECT_EQ(
      database.Rows("select RowNumber, Shortage, Surplus, BaseValue, ShortageValue, SurplusValue, TotalValue"
                    " from vwInventoryCountingPrint where ID = 7 order by RowNumber"),
      "1|2.5|NULL|10.0|25.0|NULL|40.0\n"
      "2|NULL|3.0|100.0|NULL|300.0|800.0\n"
      "3|NULL|NULL|0.0|NULL|NULL|0.0\n");
}

TEST(PrintView, Prints_a_line_without_a_unit_and_none_whose_good_is_gone_as_the_form_shows_them) {
  TestFile database;
  FillOneCounting(database);
  database.Execute(
      "insert into tblInventoryCountingDetail (CountingID, Barcode, RowNumber) values (7, 'gone', 1), (7, "
      "'b1', 2)");
  EXPECT_EQ(
      database.Rows("select InvName, Barcode, GoodCode, GoodName, UnitName, AcceptedCounting, TotalValue"
                    " from vwInventoryCountingPrint"),
      "انبار|b1|g1|قند||NULL|NULL\n");
}

TEST(PrintView, A_counting_without_lines_prints_nothing) {
  TestFile database;
  FillOneCounting(database);
  EXPECT_EQ(database.Rows("select * from vwInventoryCountingPrint"), "");
}

TEST(SuiteViews, Show_the_company_and_the_folder_of_its_reports) {
  TestFile database;
  database.Execute(
      "insert into tblPelinCompany (ID, Name, BasePath) values (2, 'دوم', '/b/'), (1, 'اول', '/a/')");
  EXPECT_EQ(database.Scalar("select Name from vwPelinCompany"), "اول");
  EXPECT_EQ(database.Rows("select BasePath from vwPelinBasePath"), "/a/\n");
}

}  // namespace koru::test
