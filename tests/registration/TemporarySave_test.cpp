#include "registration/TemporarySave.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/registration/DocumentsTest.h"
#include "tests/registration/ExpectedStatements.h"

namespace koru {
namespace {

class TemporarySaving : public DocumentsTest {
 protected:
  void Save() { TemporarySave(form, shared, guard).Run(); }

  /// What the lines of the database hold, as "row: difference" and so on.
  std::vector<std::string> Stored(const std::string& columns) {
    return Rows("select " + columns + " from tblInventoryCountingDetail order by RowNumber");
  }
};

TEST_F(TemporarySaving, A_new_counting_is_written_with_its_header_and_its_lines) {
  FillHeader();
  AddLine({.barcode = " 100 ",
           .unit = "4",
           .first = "7",
           .accepted = "7",
           .system = "2",
           .surplus = "5",
           .rate = "1200"});
  AddLine({.barcode = "200", .unit = "-1", .accepted = "2.5", .system = "5.5", .shortage = "3", .rate = "0"});
  shared.DocMode = DocumentMode::New;
  Save();
  EXPECT_EQ(Sent(), (Texts{kHeaderInsert, kNewestCounting, kDeleteLinesOf1,
                           LineInsert("1,'100',1,4,7,NULL,NULL,7,2,5,1200"),
                           LineInsert("1,'200',2,-1,NULL,NULL,NULL,2.5,5.5,-3,0")}));
  EXPECT_EQ(form.lblIDVal.Caption(), "1");
  EXPECT_EQ(Rows("select Code, ManualCode, Notes, CounterEmployeeID2 from tblInventoryCounting"),
            Texts{"NULL|م-12|شمارش 'پايان' سال|NULL"});
}

TEST_F(TemporarySaving, An_edited_counting_is_updated_and_its_last_saver_becomes_its_creator) {
  StoreCounting();
  FillHeader();
  form.mptCounter2.Select(12);
  AddLine({.barcode = "100", .unit = "4", .accepted = "0"});
  shared.DocMode = DocumentMode::Editing;
  shared.user.userID = 8;
  Grant(80605);
  Save();
  const std::string update =
      "update tblInventoryCounting set inventoryID=3,creatorid=8,CreateDate='2024-03-20',"
      "FarsiCreateDate='1403/01/01',CounterEmployeeID1=11,CounterEmployeeID2=12,"
      "CounterEmployeeID3=13,CounterConfirmerID=14,FromDate='2023-03-21',"
      "FarsiFromDate='1402/01/01',ToDate='2024-03-19',FarsiToDate='1402/12/29',"
      "Notes='شمارش ''پايان'' سال',ManualCode='م-12' where id=1";
  EXPECT_EQ(Sent(), (Texts{update, kDeleteLinesOf1, LineInsert("1,'100',1,4,NULL,NULL,NULL,0,NULL,Null,0")}));
  EXPECT_EQ(Rows("select ID, CreatorID, Code from tblInventoryCounting"), Texts{"1|8|NULL"});
}

TEST_F(TemporarySaving, Boxes_and_selectors_without_a_choice_are_written_as_NULL) {
  form.txtGNO.SetText("1");
  shared.DocMode = DocumentMode::New;
  Save();
  ASSERT_EQ(Sent().size(), 3U);
  EXPECT_EQ(Sent()[0],
            "insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
            "CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,"
            "FromDate,FarsiFromDate,ToDate,FarsiToDate) values "
            "(NULL,7,NULL,NULL,NULL,NULL,NULL,NULL,'','1',NULL,NULL,NULL,NULL)");
  StartRecording();
  shared.DocMode = DocumentMode::Editing;
  Save();
  EXPECT_EQ(
      Sent()[0],
      "update tblInventoryCounting set inventoryID=NULL,creatorid=7,CreateDate=NULL,FarsiCreateDate=NULL,"
      "CounterEmployeeID1=NULL,CounterEmployeeID2=NULL,CounterEmployeeID3=NULL,CounterConfirmerID=NULL,"
      "FromDate=NULL,FarsiFromDate=NULL,ToDate=NULL,FarsiToDate=NULL,Notes='',ManualCode='1' where id=1");
}

TEST_F(TemporarySaving, A_user_without_the_right_gets_a_message_and_nothing_is_written) {
  Revoke(80605);
  FillHeader();
  shared.DocMode = DocumentMode::New;
  const std::string before = Dump();
  Save();
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(NewTitledMessages(),
            (Texts{"خطا: شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."}));
  EXPECT_EQ(shared.DocMode, DocumentMode::New);
  EXPECT_FALSE(IsLocked());
}

TEST_F(TemporarySaving, A_counting_without_lines_saves_its_header_and_deletes_the_stored_lines) {
  StoreCounting();
  StoreLine(1, "100", "5");
  FillHeader();
  shared.DocMode = DocumentMode::Editing;
  Save();
  ASSERT_EQ(Sent().size(), 2U);
  EXPECT_EQ(Sent()[1], kDeleteLinesOf1);
  EXPECT_EQ(Stored("*"), Texts{});
  EXPECT_EQ(Rows("select ManualCode from tblInventoryCounting"), Texts{"م-12"});
}

TEST_F(TemporarySaving, A_row_without_a_name_is_left_out_and_the_next_keeps_its_own_number) {
  StoreCounting();
  AddLine({.barcode = "100"});
  AddLine({.barcode = "200", .name = ""});
  AddLine({.barcode = "300", .name = " "});
  Save();
  EXPECT_EQ(Stored("RowNumber, Barcode"), (Texts{"1|100", "3|300"}));
}

TEST_F(TemporarySaving, The_difference_is_the_surplus_or_less_the_shortage_or_none) {
  StoreCounting();
  AddLine({.barcode = "1", .shortage = "0", .surplus = "0"});
  AddLine({.barcode = "2", .shortage = "", .surplus = "5"});
  AddLine({.barcode = "3", .shortage = "3", .surplus = ""});
  AddLine({.barcode = "4", .shortage = "", .surplus = ""});
  AddLine({.barcode = "5", .shortage = "3", .surplus = "5"});
  AddLine({.barcode = "6", .shortage = "-3", .surplus = "-5"});
  AddLine({.barcode = "7", .shortage = "0.125", .surplus = "0"});
  Save();
  EXPECT_EQ(Stored("ContradictionCounting"), (Texts{"NULL", "5", "-3", "NULL", "5", "NULL", "-0.125"}));
}

TEST_F(TemporarySaving, An_empty_count_stays_empty_and_a_counted_zero_is_zero) {
  StoreCounting();
  AddLine({.barcode = "1", .first = "", .second = "0", .third = "  ", .accepted = " 0 ", .system = "x"});
  Save();
  EXPECT_EQ(Stored("FirstCounting, SecondCounting, ThirdCounting, AcceptedCounting, SystemCounting"),
            Texts{"NULL|0|NULL|0|0"});
}

TEST_F(TemporarySaving, Numbers_are_written_with_a_point_and_without_grouping) {
  StoreCounting();
  AddLine(
      {.barcode = "1", .unit = "", .first = "1234567.25", .second = "-0", .third = "1e15", .rate = "12abc"});
  Save();
  EXPECT_EQ(Sent().back(), LineInsert("1,'1',1,0,1234567.25,0,1E+15,NULL,NULL,Null,12"));
}

TEST_F(TemporarySaving, Notes_are_cut_at_1000_characters_before_their_apostrophes_are_doubled) {
  StoreCounting();
  shared.DocMode = DocumentMode::Editing;
  form.txtNotes.SetText(Repeat("'", 1001));
  Save();
  EXPECT_NE(Sent()[0].find("Notes='" + Repeat("'", 2000) + "',ManualCode"), std::string::npos);
  EXPECT_EQ(Rows("select Notes from tblInventoryCounting"), Texts{Repeat("'", 1000)});

  shared.DocMode = DocumentMode::Editing;
  form.txtNotes.SetText(Repeat("ش", 999) + "😀x");  // the picture takes the 1000th unit and the one after it
  Save();
  EXPECT_EQ(Rows("select Notes from tblInventoryCounting"), Texts{Repeat("ش", 999)});

  shared.DocMode = DocumentMode::Editing;
  form.txtNotes.SetText(Repeat("ش", 998) + "😀x");
  Save();
  EXPECT_EQ(Rows("select Notes from tblInventoryCounting"), Texts{Repeat("ش", 998) + "😀"});
}

TEST_F(TemporarySaving, An_apostrophe_in_the_manual_number_is_found_before_anything_is_written) {
  FillHeader();
  form.txtGNO.SetText("12'3");
  shared.DocMode = DocumentMode::New;
  const std::string before = Dump();
  EXPECT_THROW(Save(), InputError);
  EXPECT_EQ(Sent(), Texts{});
  EXPECT_EQ(Dump(), before);
  EXPECT_EQ(shared.DocMode, DocumentMode::New);
  EXPECT_EQ(form.Caption(), "");
  EXPECT_EQ(form.Focus(), &form.txtGNO);
}

TEST_F(TemporarySaving, While_viewing_no_header_is_written_but_all_lines_are) {
  StoreCounting();
  StoreLine(1, "100", "5");
  form.txtNotes.SetText("not to be written");
  AddLine({.barcode = "200"});
  shared.DocMode = DocumentMode::Viewing;
  Save();
  ASSERT_EQ(Sent().size(), 2U);
  EXPECT_EQ(Sent()[0], kDeleteLinesOf1);
  EXPECT_EQ(Stored("Barcode"), Texts{"200"});
  EXPECT_TRUE(IsLocked());
}

TEST_F(TemporarySaving, An_empty_form_turns_to_viewing_and_writes_no_header) {
  shared.DocMode = DocumentMode::Empty;
  Save();
  EXPECT_EQ(Sent(), Texts{"Delete tblInventoryCountingDetail Where CountingID = 0"});
  EXPECT_EQ(shared.DocMode, DocumentMode::Viewing);
  EXPECT_TRUE(IsLocked());
}

TEST_F(TemporarySaving, Only_a_new_counting_gives_the_form_its_title) {
  shared.DocMode = DocumentMode::New;
  Save();
  EXPECT_EQ(form.Caption(), "شمارش موقت");
  form.SetCaption("شمارش");
  shared.DocMode = DocumentMode::Editing;
  Save();
  EXPECT_EQ(form.Caption(), "شمارش");
}

TEST_F(TemporarySaving, The_form_is_locked_between_the_header_and_the_lines) {
  FillHeader();
  AddLine({.barcode = "100"});
  shared.DocMode = DocumentMode::New;
  std::vector<std::size_t> sentWhenLocked;
  const Subscription watching = form.gdpReceiveDate.StateChanged.Subscribe([&] {
    EXPECT_TRUE(IsLocked());
    EXPECT_EQ(shared.DocMode, DocumentMode::Viewing);
    sentWhenLocked.push_back(Sent().size());
  });
  Save();
  EXPECT_EQ(sentWhenLocked, std::vector<std::size_t>{2});
}

TEST_F(TemporarySaving, Header_and_lines_reach_the_disk_together) {
  FillHeader();
  AddLine({.barcode = "100"});
  shared.DocMode = DocumentMode::New;
  std::string seenByOthers = "0";
  const Subscription look = form.gdpReceiveDate.StateChanged.Subscribe([&] {
    if (database.IsOnServer()) return;  // where a reader may wait for the writer
    seenByOthers = database.Scalar("select count(*) from tblInventoryCounting");
  });
  Save();
  EXPECT_EQ(seenByOthers, "0");
  EXPECT_EQ(Stored("Barcode"), Texts{"100"});
}

TEST_F(TemporarySaving, A_good_save_says_nothing_and_leaves_pointer_and_progress_as_they_were) {
  FillHeader();
  for (int row = 1; row <= 250; ++row) AddLine({.barcode = std::to_string(row)});
  std::vector<int> steps;
  const Subscription watching = form.pgbStatus.StateChanged.Subscribe([&] {
    if (form.pgbStatus.Visible()) steps.push_back(form.pgbStatus.Value());
  });
  shared.DocMode = DocumentMode::New;
  Save();
  EXPECT_EQ(NewTitledMessages(), Texts{});
  EXPECT_EQ(form.pgbStatus.Max(), 250);
  ASSERT_GE(steps.size(), 250U) << "every line moves the bar";
  EXPECT_EQ(steps.back(), 250);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

}  // namespace
}  // namespace koru
