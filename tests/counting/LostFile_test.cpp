#include <gtest/gtest.h>

#include <filesystem>

#include "lines/LineColumns.h"
#include "platform/sql/ConnectionText.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

/// The embedded database's file is moved away while a counting is being entered.
class LostFile : public CountingWorld {
 protected:
  LostFile() : CountingWorld(TestDatabase::Kind::File) {}
  void SetUp() override {
    ViewAndEdit(10);
    Form().txtNotes.UserType("پاياني");
    ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "11"));
    NewMessages();
  }
  void MoveAway() const { std::filesystem::rename(file_, file_ + ".away"); }
  void PutBack() const { std::filesystem::rename(file_ + ".away", file_); }
  void ExpectReportedAndTypedTextKept(Button& command) {
    Form().Timer1.Fire();
    Click(command);
    const Texts shown = NewMessages();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown[0].find("پروندة پايگاه داده از جاي خود رفته است"), std::string::npos) << shown[0];
    EXPECT_NE(shown[0].find(file_), std::string::npos) << shown[0];
    EXPECT_EQ(Mode(), DocumentMode::Editing);
    EXPECT_EQ(Form().flexDetail.Rows(), 3);
    EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "11");
    EXPECT_EQ(Form().txtNotes.Text(), "پاياني");
    EXPECT_EQ(Form().txtCode.Text(), "");
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  }

  const std::string file_ = ConnectionText::Parse(database.ConnectionText()).Get("Data Source");
};

TEST_F(LostFile, A_save_and_a_registration_report_it_and_keep_what_was_typed) {
  MoveAway();
  ExpectReportedAndTypedTextKept(Form().cmdTmpSave);
  ExpectReportedAndTypedTextKept(Form().cmdIsFinalized);
}

TEST_F(LostFile, Once_it_is_back_the_same_save_is_done) {
  MoveAway();
  ExpectReportedAndTypedTextKept(Form().cmdTmpSave);
  PutBack();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where CountingID=10 and "
                            "Barcode='G1'"),
            "11");
}

TEST_F(LostFile, When_nothing_of_a_save_could_be_kept_the_counting_is_still_being_entered) {
  const auto moving = Form().pgbStatus.StateChanged.Subscribe([this] {
    if (Form().pgbStatus.Value() == 2 && std::filesystem::exists(file_)) MoveAway();
  });
  ExpectReportedAndTypedTextKept(Form().cmdTmpSave);
  EXPECT_FALSE(Form().txtNotes.Locked());
}

TEST_F(LostFile, A_new_counting_that_was_not_stored_shows_no_key_and_is_stored_by_the_next_save) {
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  Click(Form().cmdNew);
  Form().flexDetail.SetRows(2);
  Form().flexDetail.SetTextMatrix(1, LineColumn::Barcode, "G1");
  Form().flexDetail.SetTextMatrix(1, LineColumn::GoodName, "چاي");
  const std::string title = Form().Caption();
  NewMessages();
  {
    const auto moving = Form().pgbStatus.StateChanged.Subscribe([this] {
      if (Form().pgbStatus.Value() == 1 && std::filesystem::exists(file_)) MoveAway();
    });
    Form().Timer1.Fire();
    Click(Form().cmdTmpSave);
  }
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_EQ(Mode(), DocumentMode::New);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  EXPECT_EQ(Form().Caption(), title);
  PutBack();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Form().lblIDVal.Caption(), "14");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCounting"), "5");
}

}  // namespace
}  // namespace koru::test
