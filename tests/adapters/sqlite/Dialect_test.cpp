#include "adapters/sqlite/Dialect.h"

#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/NormalizedStatement.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

std::string Translated(const std::string& statement) { return Translate(Normalize(statement).text); }

TEST(Dialect, Reads_NULL_with_a_default) {
  EXPECT_EQ(Translated("select IsNull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting"),
            "select ifnull(max(ifnull(code,?1)),?2) as maxcode from tblInventoryCounting");
}

TEST(Dialect, Leaves_names_that_only_look_like_functions_alone) {
  EXPECT_EQ(Translated("select isnull from T"), "select isnull from T");
}

TEST(Dialect, Deletes_with_and_without_from) {
  EXPECT_EQ(Translated("delete tblUser where id=5"), "delete from tblUser where id=?1");
  EXPECT_EQ(Translated("Delete From tblUser"), "Delete From tblUser");
}

TEST(Dialect, Takes_the_first_rows_of_each_selection) {
  EXPECT_EQ(Translated("Select top 1 Name from vwPelinCompany"), "Select Name from vwPelinCompany limit ?1");
  EXPECT_EQ(Translated("select distinct top (3) Name from tblUser order by Name"),
            "select distinct Name from tblUser order by Name limit ?1");
  EXPECT_EQ(
      Translated(
          "select top 2 ID from tblUser where ID in (select top 1 ID from tblUser where ID>7) and 1=1"),
      "select ID from tblUser where ID in (select ID from tblUser where ID>?3 limit ?2) and ?4=?5 limit ?1");
}

TEST(Dialect, Gives_texts_the_collation_only_where_an_expression_has_lost_it) {
  EXPECT_EQ(
      Translated(
          "select * from tblUser where FullName='x' and LTrim(FullName)='y' and 'z'=isnull(FullName,'')"),
      "select * from tblUser where FullName=?1 and LTrim(FullName)=?2 collate KORU and ?3 collate "
      "KORU=ifnull(FullName,?4)");
  EXPECT_EQ(Translated("select * from tblInventoryReceipt where ReceiveDate>='2024-01-01'"),
            "select * from tblInventoryReceipt where ReceiveDate>=?1");
}

TEST(Dialect, Keeps_comma_joins) {
  EXPECT_EQ(
      Translated("Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where ReceiptID=ID and "
                 "InventoryID = 4"),
      "Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where ReceiptID=ID and InventoryID "
      "= ?1");
}

TEST(Dialect, Refuses_an_order_by_number_which_would_order_by_a_constant) {
  EXPECT_THROW((void)Translated("select ID from tblUser order by 1"), DatabaseError);
}

TEST(Dialect, Keeps_subqueries) {
  EXPECT_EQ(
      Translated("Select Qty from tblInventoryReceiptDetail where Qty=1 and ReceiptID in (select ID from "
                 "tblInventoryReceipt where Code is not NULL)"),
      "Select Qty from tblInventoryReceiptDetail where Qty=?1 and ReceiptID in (select ID from "
      "tblInventoryReceipt where Code is not NULL)");
}

}  // namespace
}  // namespace koru
