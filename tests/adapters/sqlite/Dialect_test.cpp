#include "adapters/sqlite/Dialect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/sqlite/StatementShape.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class Dialect : public testing::Test {
 protected:
  std::string Translated(const std::string& statement) {
    return TranslateShape(ReadShape(statement).text, connection_);
  }
  test::TestFile database_;
  SqliteConnection connection_{database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0)};
};

TEST_F(Dialect, Reads_NULL_with_a_default) {
  EXPECT_EQ(Translated("select IsNull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting"),
            "select ifnull(max(ifnull(code,?1)),?2) as maxcode from tblInventoryCounting");
}

TEST_F(Dialect, Leaves_names_that_only_look_like_functions_alone) {
  EXPECT_EQ(Translated("select isnull from T"), "select isnull from T");
}

TEST_F(Dialect, Deletes_with_and_without_from) {
  EXPECT_EQ(Translated("delete tblUser where id=5"), "delete from tblUser where id=?1");
  EXPECT_EQ(Translated("Delete From tblUser"), "Delete From tblUser");
}

TEST_F(Dialect, Takes_the_first_rows_of_each_selection) {
  EXPECT_EQ(Translated("Select top 1 Name from vwPelinCompany"), "Select Name from vwPelinCompany limit ?1");
  EXPECT_EQ(Translated("select distinct top (3) Name from tblUser order by Name"),
            "select distinct Name from tblUser order by Name limit ?1");
  EXPECT_EQ(
      Translated(
          "select top 2 ID from tblUser where ID in (select top 1 ID from tblUser where ID>7) and 1=1"),
      "select ID from tblUser where ID in (select ID from tblUser where ID>?3 limit ?2) and ?4=?5 limit ?1");
}

TEST_F(Dialect, Gives_texts_the_collation_only_where_an_expression_has_lost_it) {
  EXPECT_EQ(
      Translated(
          "select * from tblUser where FullName='x' and LTrim(FullName)='y' and 'z'=isnull(FullName,'')"),
      "select * from tblUser where FullName=?1 and LTrim(FullName)=?2 collate KORU and ?3 collate "
      "KORU=ifnull(FullName,?4)");
  EXPECT_EQ(Translated("select * from tblInventoryReceipt where ReceiveDate>='2024-01-01'"),
            "select * from tblInventoryReceipt where ReceiveDate>=?1");
}

TEST_F(Dialect, Keeps_comma_joins) {
  EXPECT_EQ(
      Translated("Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where ReceiptID=ID and "
                 "InventoryID = 4"),
      "Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where ReceiptID=ID and InventoryID "
      "= ?1");
}

TEST_F(Dialect, Refuses_an_order_by_number_which_would_order_by_a_constant) {
  EXPECT_THROW((void)Translated("select ID from tblUser order by 1"), DatabaseError);
}

TEST_F(Dialect, Looks_documents_up_by_their_key) {
  EXPECT_EQ(
      Translated("Select Qty from tblInventoryReceiptDetail where Qty=1 and ReceiptID in (select ID from "
                 "tblInventoryReceipt where Code is not NULL and (InventoryID=2 or InventoryID=3))"),
      "Select Qty from tblInventoryReceiptDetail where Qty=?1 and exists (select 1 from tblInventoryReceipt "
      "where "
      "tblInventoryReceipt.ID=tblInventoryReceiptDetail.ReceiptID and ( Code is not NULL and (InventoryID=?2 "
      "or "
      "InventoryID=?3)))");
}

TEST_F(Dialect, Leaves_selections_as_they_are_where_something_else_could_come_out) {
  const std::string inner = "(select ID from tblInventoryReceipt where Code=1)";
  const std::string details = "select Qty from tblInventoryReceiptDetail where ";
  const std::vector<std::string> unchanged = {
      // Beside an or, or turned round by a not.
      details + "Qty=1 or ReceiptID in " + inner,
      details + "Qty=1 and ReceiptID in " + inner + " or Qty=2",
      details + "not ReceiptID in " + inner,
      details + "ReceiptID not in " + inner,
      details + "(Qty=1 or ReceiptID in " + inner + ")",
      // The column belongs to no table, to a view, to one of several tables, or to the inner table.
      details + "Nothing in " + inner,
      "select ID from vwInventoryCounting where ID in " + inner,
      "select Qty from tblInventoryReceiptDetail,tblUser where ReceiptID in " + inner,
      "select ID from tblInventoryReceipt where ID in " + inner,
      // No key, or only a part of one.
      "select ID from tblInventory where ID in (select InventoryID from tblInventoryReceipt where Code=1)",
      "select ID from tblGoodScale where ID in (select ScaleID from tblGoodSaleScale where ScaleID=1)",
      // Rows that depend on each other.
      details + "ReceiptID in (select ID from tblInventoryReceipt where Code=1 group by ID)",
  };
  for (const std::string& statement : unchanged) {
    EXPECT_EQ(Translated(statement).find("exists"), std::string::npos) << statement;
    EXPECT_NE(Translated(statement).find(" in (select"), std::string::npos) << statement;
  }
}

TEST_F(Dialect, Finds_equal_barcodes_through_the_index_on_trimmed_ones) {
  EXPECT_EQ(
      Translated("select Value from tblInventoryReceiptDetail,tblInventoryReceipt where ID=ReceiptID and "
                 "Barcode='x' and Value>0"),
      "select Value from tblInventoryReceiptDetail,tblInventoryReceipt where ID=ReceiptID and "
      "LTrim(RTrim(tblInventoryReceiptDetail.Barcode)) = LTrim(RTrim(?1)) collate KORU and +Barcode=?1 and "
      "Value>?2");
}

TEST_F(Dialect, Leaves_barcodes_with_an_index_of_their_own_alone) {
  for (const std::string statement :
       {"select Name from tblGood where Barcode='x'",
        "select ScaleID from tblGoodSaleScale where Barcode='x'",
        "select Qty from tblInventoryReceiptDetail where Barcode='x' or Qty=1",
        "select Qty from tblInventoryReceiptDetail,tblGood where Barcode='x'"}) {
    EXPECT_EQ(Translated(statement).find("LTrim"), std::string::npos) << statement;
  }
}

}  // namespace
}  // namespace koru
