#include "registration/AdjustmentDocuments.h"

#include <gtest/gtest.h>

#include "tests/registration/DocumentsTest.h"
#include "tests/registration/ExpectedStatements.h"

namespace koru {
namespace {

class Adjustment : public DocumentsTest {
 protected:
  Adjustment() {
    StoreCounting();
    FillHeader();
  }

  void Create() { AdjustmentDocuments(form, shared).CreateAdjustmentDocuments(); }
  Texts Links() { return Rows("select DispatchID, ReceiptID from tblInventoryCounting"); }
  Texts DispatchLines() {
    return Rows(
        "select DispatchID, Barcode, Qty, ScaleID, ScaleQty, Description from tblInventoryDispatchDetail "
        "order by Barcode");
  }
  Texts ReceiptLines() {
    return Rows(
        "select ReceiptID, Barcode, Qty, ScaleID, ScaleQty, Description from tblInventoryReceiptDetail "
        "order by Barcode");
  }
};

TEST_F(Adjustment, Shortages_become_a_dispatch_and_surpluses_a_receipt) {
  StoreLine(1, "100", "-2.5");
  StoreLine(2, "200", "4");
  Create();
  EXPECT_EQ(Sent(),
            Joined(RemovalOfDocuments("1"),
                   {DispatchHeader("1"), kNewestDispatch, ShortagesOf("1"), DispatchLine("1,'100',2.5,4,2.5"),
                    "Update tblInventoryCounting set DispatchID = 1 Where ID = 1", ReceiptHeader("1"),
                    kNewestReceipt, SurplusesOf("1"), ReceiptLine("1,'200',4,4,4"),
                    "Update tblInventoryCounting set ReceiptID = 1 Where ID = 1"}));
  const Texts header = {
      "1|NULL|3|7|2024-03-20|1403/01/01|2024-03-20|1403/01/01|"
      "سند ايجاد شده از روي شمارش به شماره رايانهاي 1"};
  EXPECT_EQ(Rows("select * from tblInventoryDispatch"), header);
  EXPECT_EQ(Rows("select * from tblInventoryReceipt"), header);
  EXPECT_EQ(DispatchLines(), Texts{"1|100|2.5|4|2.5|"});
  EXPECT_EQ(ReceiptLines(), Texts{"1|200|4|4|4|"});
  EXPECT_EQ(Links(), Texts{"1|1"});
}

TEST_F(Adjustment, Without_differences_both_documents_go_again_and_old_links_stay) {
  Execute("update tblInventoryCounting set DispatchID = 41, ReceiptID = 42 where ID = 1");
  StoreLine(1, "100", "NULL");
  StoreLine(2, "200", "0");
  Create();
  EXPECT_EQ(Sent(), Joined(RemovalOfDocuments("1"), EmptyDocuments("1", "1", "1")));
  EXPECT_EQ(Links(), Texts{"41|42"});
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{});
}

TEST_F(Adjustment, Shortages_alone_give_a_dispatch_and_no_receipt) {
  StoreLine(1, "100", "-1");
  Create();
  EXPECT_EQ(Links(), Texts{"1|NULL"});
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{"1"});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{});
}

TEST_F(Adjustment, Surpluses_alone_give_a_receipt_and_no_dispatch) {
  StoreLine(1, "100", "1");
  Create();
  EXPECT_EQ(Links(), Texts{"NULL|1"});
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{"1"});
}

TEST_F(Adjustment, Lines_of_the_same_good_and_unit_become_one_line) {
  StoreLine(1, "100", "-2");
  StoreLine(2, "100", "-3");
  StoreLine(3, "100", "-7", "5");
  StoreLine(4, "300", "0.25");
  StoreLine(5, "300", "1.5");
  Create();
  EXPECT_EQ(Rows("select Barcode, Qty, ScaleID from tblInventoryDispatchDetail order by ScaleID"),
            (Texts{"100|5|4", "100|7|5"}));
  EXPECT_EQ(ReceiptLines(), Texts{"1|300|1.75|4|1.75|"});
}

TEST_F(Adjustment, A_line_without_a_unit_gives_a_document_line_without_one) {
  StoreLine(1, "100", "-2", "NULL");
  StoreLine(2, "200", "2", "NULL");
  Create();
  EXPECT_EQ(DispatchLines(), Texts{"1|100|2|NULL|2|"});
  EXPECT_EQ(ReceiptLines(), Texts{"1|200|2|NULL|2|"});
}

TEST_F(Adjustment, A_second_run_leaves_one_set_of_documents) {
  StoreLine(1, "100", "-2");
  StoreLine(2, "200", "4");
  Create();
  Create();
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{"2"});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{"2"});
  EXPECT_EQ(DispatchLines(), Texts{"2|100|2|4|2|"});
  EXPECT_EQ(ReceiptLines(), Texts{"2|200|4|4|4|"});
  EXPECT_EQ(Links(), Texts{"2|2"});
}

TEST_F(Adjustment, Lines_and_documents_of_other_countings_are_left_alone) {
  Execute("insert into tblInventoryCounting (DispatchID, ReceiptID) values (1, 1)");
  Execute(
      "insert into tblInventoryCountingDetail (CountingID, Barcode, ContradictionCounting) values (2, '9', "
      "-1)");
  Execute("insert into tblInventoryDispatch (Notes) values ('other')");
  Execute("insert into tblInventoryReceipt (Notes) values ('other')");
  StoreLine(1, "100", "-2");
  Create();
  EXPECT_EQ(DispatchLines(), Texts{"2|100|2|4|2|"});
  EXPECT_EQ(Rows("select ID, Notes from tblInventoryDispatch where Notes = 'other'"), Texts{"1|other"});
  EXPECT_EQ(Rows("select ID, Notes from tblInventoryReceipt"), Texts{"1|other"});
}

TEST_F(Adjustment, Blanks_around_a_stored_barcode_are_not_copied) {
  StoreLine(1, " 100 ", "-2");
  Create();
  EXPECT_EQ(DispatchLines(), Texts{"1|100|2|4|2|"});
}

TEST_F(Adjustment, Without_store_and_date_the_documents_have_none_but_their_create_date_is_empty_text) {
  form.gmpInventory.ClearSelection();
  form.gdpReceiveDate.Clear();
  StoreLine(1, "100", "-2");
  Create();
  EXPECT_EQ(Sent()[4],
            "insert into tblInventoryDispatch (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, "
            "createdate,FarsiCreateDate,Notes) values (NULL,7,NULL,NULL,'','',"
            "'سند ايجاد شده از روي شمارش به شماره رايانهاي 1')");
}

}  // namespace
}  // namespace koru
