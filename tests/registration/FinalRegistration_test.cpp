#include "registration/FinalRegistration.h"

#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "registration/TemporarySave.h"
#include "tests/registration/DocumentsTest.h"
#include "tests/registration/ExpectedStatements.h"

namespace koru {
namespace {

constexpr const char* kHighestCode =
    "select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting where Code is not Null ";

/// A manual number whose statement is refused: no statement carries this character.
const std::string kBreaksTheHeader("a\0b", 3);

class Registration : public DocumentsTest {
 protected:
  void Register() { FinalRegistration(form, shared, guard).Run(); }
};

TEST_F(Registration, A_new_counting_is_saved_numbered_and_gets_both_documents) {
  FillHeader();
  AddLine({.barcode = "100", .unit = "4", .accepted = "7", .system = "2", .surplus = "5"});
  AddLine({.barcode = "200", .unit = "4", .accepted = "2", .system = "5", .shortage = "3"});
  shared.DocMode = DocumentMode::New;
  Register();
  Texts expected = {kHighestCode,
                    kHeaderInsert,
                    kNewestCounting,
                    kDeleteLinesOf1,
                    LineInsert("1,'100',1,4,NULL,NULL,NULL,7,2,5,0"),
                    LineInsert("1,'200',2,4,NULL,NULL,NULL,2,5,-3,0"),
                    "update tblInventoryCounting set Code = 1 where id=1"};
  expected = Joined(std::move(expected), RemovalOfDocuments("1"));
  expected = Joined(std::move(expected),
                    {DispatchHeader("1"), kNewestDispatch, ShortagesOf("1"), DispatchLine("1,'200',3,4,3"),
                     "Update tblInventoryCounting set DispatchID = 1 Where ID = 1", ReceiptHeader("1"),
                     kNewestReceipt, SurplusesOf("1"), ReceiptLine("1,'100',5,4,5"),
                     "Update tblInventoryCounting set ReceiptID = 1 Where ID = 1"});
  EXPECT_EQ(Sent(), expected);
  EXPECT_EQ(Rows("select ID, Code, DispatchID, ReceiptID from tblInventoryCounting"), Texts{"1|1|1|1"});
  EXPECT_EQ(form.txtCode.Text(), "1");
  EXPECT_EQ(shared.DocMode, DocumentMode::Viewing);
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(Registration, Does_not_begin_when_the_host_refuses_it) {
  FillHeader();
  AddLine({.barcode = "100", .unit = "4", .accepted = "7", .system = "2", .surplus = "5"});
  shared.DocMode = DocumentMode::New;
  int asked = 0;
  shared.services.beforeRegistration = [&asked] { return ++asked > 1; };
  Register();
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(shared.DocMode, DocumentMode::New);
  Register();
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(Rows("select Code from tblInventoryCounting"), Texts{"1"});
}

TEST_F(Registration, An_edited_counting_without_differences_gets_its_number_and_no_documents) {
  StoreCounting();
  FillHeader();
  AddLine({.barcode = "100", .unit = "4", .accepted = "7", .system = "7", .shortage = "0", .surplus = "0"});
  shared.DocMode = DocumentMode::Editing;
  Register();
  Texts expected = {kHighestCode, kHeaderUpdateOf1, kDeleteLinesOf1,
                    LineInsert("1,'100',1,4,NULL,NULL,NULL,7,7,Null,0"),
                    "update tblInventoryCounting set Code = 1 where id=1"};
  expected = Joined(Joined(std::move(expected), RemovalOfDocuments("1")), EmptyDocuments("1", "1", "1"));
  EXPECT_EQ(Sent(), expected);
  EXPECT_EQ(Rows("select Code, DispatchID, ReceiptID from tblInventoryCounting"), Texts{"1|NULL|NULL"});
  EXPECT_EQ(Rows("select * from tblInventoryDispatch"), Texts{});
  EXPECT_EQ(Rows("select * from tblInventoryReceipt"), Texts{});
}

TEST_F(Registration, The_first_final_counting_gets_number_1) {
  StoreCounting();
  Register();
  EXPECT_EQ(Rows("select Code from tblInventoryCounting"), Texts{"1"});
}

TEST_F(Registration, The_next_number_follows_the_highest_of_all_stores_and_periods) {
  for (int code = 1; code <= 7; ++code) {
    Execute("insert into tblInventoryCounting (Code, InventoryID, FromDate, ToDate) values (" +
            std::to_string(code) + ", " + std::to_string(90 + code) + ", '2001-01-01', '2001-12-31')");
  }
  Execute("insert into tblInventoryCounting (InventoryID) values (3)");
  form.lblIDVal.SetCaption("8");
  FillHeader();
  shared.DocMode = DocumentMode::Editing;
  Register();
  EXPECT_EQ(form.txtCode.Text(), "8");
  EXPECT_EQ(Rows("select Code from tblInventoryCounting order by ID"),
            (Texts{"1", "2", "3", "4", "5", "6", "7", "8"}));
}

TEST_F(Registration, A_final_counting_registered_again_gets_the_next_number_and_its_documents_anew) {
  FillHeader();
  AddLine({.barcode = "100", .unit = "4", .surplus = "5"});
  AddLine({.barcode = "200", .unit = "4", .shortage = "3"});
  shared.DocMode = DocumentMode::New;
  Register();
  form.flexDetail.SetTextMatrix(1, LineColumn::Surplus, "6");
  Register();
  EXPECT_EQ(Rows("select ID, Code, DispatchID, ReceiptID from tblInventoryCounting"), Texts{"1|2|2|2"});
  EXPECT_EQ(Rows("select DispatchID, Barcode, Qty from tblInventoryDispatchDetail"), Texts{"2|200|3"});
  EXPECT_EQ(Rows("select ReceiptID, Barcode, Qty from tblInventoryReceiptDetail"), Texts{"2|100|6"});
  EXPECT_EQ(Rows("select ID from tblInventoryDispatch"), Texts{"2"});
  EXPECT_EQ(Rows("select ID from tblInventoryReceipt"), Texts{"2"});
  EXPECT_EQ(form.txtCode.Text(), "2");
}

TEST_F(Registration,
       A_new_counting_ends_with_the_title_of_a_temporary_one_an_edited_one_with_that_of_a_final) {
  shared.DocMode = DocumentMode::New;
  Register();
  EXPECT_EQ(form.Caption(), "شمارش موقت");
  shared.DocMode = DocumentMode::Editing;
  Register();
  EXPECT_EQ(form.Caption(), "شمارش");
}

TEST_F(Registration, A_counting_that_is_only_viewed_is_registered_without_its_header_and_locks_the_form) {
  StoreCounting();
  shared.DocMode = DocumentMode::Viewing;
  Register();
  ASSERT_GE(Sent().size(), 3U);
  EXPECT_EQ(Sent()[1], kDeleteLinesOf1);
  EXPECT_EQ(Sent()[2], "update tblInventoryCounting set Code = 1 where id=1");
  EXPECT_TRUE(IsLocked());
}

TEST_F(Registration, Counting_number_and_documents_reach_the_disk_together) {
  FillHeader();
  AddLine({.barcode = "100", .surplus = "5"});
  shared.DocMode = DocumentMode::New;
  std::string seenByOthers = "0";
  const Subscription look = form.gdpReceiveDate.StateChanged.Subscribe([&] {
    if (database.IsOnServer()) return;  // where a reader may wait for the writer
    seenByOthers = database.Scalar("select count(*) from tblInventoryCounting");
  });
  Register();
  EXPECT_EQ(seenByOthers, "0");
  EXPECT_EQ(Rows("select Code, ReceiptID from tblInventoryCounting"), Texts{"1|1"});
}

TEST_F(Registration, A_user_without_the_right_gets_a_message_and_nothing_is_written) {
  Revoke(80606);
  FillHeader();
  shared.DocMode = DocumentMode::New;
  const std::string before = Dump();
  Register();
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(NewTitledMessages(),
            (Texts{"خطا: شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."}));
  EXPECT_EQ(shared.DocMode, DocumentMode::New);
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_EQ(form.Caption(), "");
}

TEST_F(Registration, A_save_that_fails_shows_the_number_without_having_stored_it) {
  StoreCounting();
  FillHeader();
  form.txtGNO.SetText(kBreaksTheHeader);
  shared.DocMode = DocumentMode::Editing;
  EXPECT_THROW(Register(), DatabaseError);
  EXPECT_EQ(form.txtCode.Text(), "1");
  EXPECT_EQ(form.Caption(), "شمارش");
  EXPECT_EQ(shared.DocMode, DocumentMode::Editing);
  EXPECT_EQ(Rows("select Code from tblInventoryCounting"), Texts{"NULL"});
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

TEST_F(Registration, A_number_that_was_not_stored_leaves_the_form_with_a_temporary_save) {
  StoreCounting();
  FillHeader();
  AddLine({.barcode = "100", .surplus = "5"});
  form.txtGNO.SetText(kBreaksTheHeader);
  shared.DocMode = DocumentMode::Editing;
  EXPECT_THROW(Register(), DatabaseError);
  form.txtGNO.SetText("12");
  TemporarySave(form, shared, guard).Run();
  EXPECT_EQ(form.txtCode.Text(), "");
  EXPECT_EQ(Rows("select Code, ManualCode from tblInventoryCounting"), Texts{"NULL|12"});
}

}  // namespace
}  // namespace koru
