#include <gtest/gtest.h>

#include <filesystem>

#include "lines/LineColumns.h"
#include "platform/ConnectionText.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

/// The embedded database's file is moved away while a counting is being entered.
class LostFile : public CountingWorld {
 protected:
  void SetUp() override {
    if (database.IsOnServer()) GTEST_SKIP() << "a server has no file";
    ViewAndEdit(10);
    Form().txtNotes.UserType("پاياني");
    ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "11"));
    NewMessages();
    std::filesystem::rename(file_, file_ + ".away");
  }
  void ExpectIsToldAndKeepsWhatWasTyped(Button& command) {
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
    EXPECT_EQ(screen.CurrentPointer(), Pointer::Normal);
  }

  const std::string file_ = ConnectionText::Parse(database.ConnectionText()).Get("Data Source");
};

TEST_F(LostFile, A_save_and_a_registration_tell_it_and_keep_what_was_typed) {
  ExpectIsToldAndKeepsWhatWasTyped(Form().cmdTmpSave);
  ExpectIsToldAndKeepsWhatWasTyped(Form().cmdIsFinalized);
}

TEST_F(LostFile, Once_it_is_back_the_same_save_is_done) {
  ExpectIsToldAndKeepsWhatWasTyped(Form().cmdTmpSave);
  std::filesystem::rename(file_ + ".away", file_);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where CountingID=10 and "
                            "Barcode='G1'"),
            "11");
}

}  // namespace
}  // namespace koru::test
