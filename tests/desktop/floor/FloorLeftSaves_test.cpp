// Left figures of the floor that the desk has not decided about when the entry is cancelled, saved or
// registered.

#include "tests/desktop/floor/FloorLeftTest.h"

namespace koru {
namespace {

class FloorLeftAtSave : public FloorLeftTest {
 protected:
  FloorLeftAtSave() {
    world.database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,80606)");
  }
  void EditAndDecideLater() {
    ASSERT_TRUE(EditAndChoose("decideLater"));
    Tick();
    NewMessages();
  }
  void EditWithoutOffer() {
    EditAndRefresh();
    Tick();
    NewMessages();
  }
  /// Presses Register and answers the question about figures of the floor, which is returned.
  [[nodiscard]] std::string AskedAtRegistration(Answer answer) {
    world.messages.WillAnswer(answer);
    EXPECT_TRUE(Counting().cmdIsFinalized.UserClick());
    const auto messages = NewMessages();
    EXPECT_EQ(messages.size(), 1U);
    return messages.empty() ? std::string() : messages[0];
  }
};

TEST_F(FloorLeftAtSave, Are_named_before_a_cancel_while_the_desk_has_not_decided) {
  ASSERT_NO_FATAL_FAILURE(EditAndDecideLater());
  SaidAtCancel(2);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها"), 0U) << messages[0];
}

TEST_F(FloorLeftAtSave, Are_named_before_a_registration_which_No_keeps_from_writing_anything) {
  ASSERT_NO_FATAL_FAILURE(EditAndDecideLater());
  const std::string asked = AskedAtRegistration(Answer::No);
  EXPECT_EQ(asked.find("2 رقم گوشي\u200cها در اين شمارش نيست. با ثبت نهايي"), 0U) << asked;
  EXPECT_FALSE(Counting().IsFinal());
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(OffersLeft([this] { Click(*window, "floorLeft"); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  Tick();
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  EXPECT_TRUE(Counting().IsFinal());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "nothing is left";
}

TEST_F(FloorLeftAtSave, That_a_registration_was_to_leave_out_are_kept_aside) {
  ASSERT_NO_FATAL_FAILURE(EditAndDecideLater());
  EXPECT_NE(AskedAtRegistration(Answer::Yes), "");
  desk->Refresh();
  EXPECT_TRUE(Counting().IsFinal());
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(FileEndingIn(".aside").empty());
}

TEST_F(FloorLeftAtSave, Are_named_before_the_first_temporary_save_that_sets_them_aside) {
  ASSERT_NO_FATAL_FAILURE(EditAndDecideLater());
  world.messages.WillAnswer(Answer::No);
  Save();
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(FileEndingIn(".aside").empty());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها در اين شمارش نيست. با ثبت موقت"), 0U) << messages[0];
  EXPECT_NE(messages[0].find("«بازگرداندن كنارگذاشته\u200cها...»"), std::string::npos) << messages[0];
  world.messages.WillAnswer(Answer::Yes);
  Save();
  EXPECT_FALSE(Counting().IsBeingEntered());
  EXPECT_FALSE(FileEndingIn(".aside").empty());
  NewMessages();
  Edit();
  Save();
  EXPECT_EQ(NewMessages(), test::Texts{}) << "they are aside";
  Edit();
  EXPECT_TRUE(OffersLeft([this] { Find<QAction>("floorCommand").trigger(); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeftAtSave, That_an_earlier_save_has_set_aside_are_named_before_a_registration_as_kept_already) {
  ASSERT_NO_FATAL_FAILURE(EditAndDecideLater());
  world.messages.WillAnswer(Answer::Yes);
  Save();
  EditWithoutOffer();
  const std::string asked = AskedAtRegistration(Answer::No);
  EXPECT_EQ(asked.find("2 رقم گوشي\u200cها در اين شمارش نيست. پيش از اين كنار گذاشته شد"), 0U) << asked;
  EXPECT_FALSE(Counting().IsFinal());
}

TEST_F(FloorLeftAtSave, That_were_not_offered_before_a_registration_are_offered_then_and_nothing_is_written) {
  Edit();
  Tick();
  EXPECT_TRUE(OffersLeft([this] { Counting().cmdIsFinalized.UserClick(); }, "takeLeft"));
  EXPECT_FALSE(Counting().IsFinal()) << "the lines with the figures have not been seen";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeftAtSave, In_a_journal_that_is_not_open_are_asked_about_before_a_registration_alone) {
  const auto held = journals.Open(Owner());
  EditWithoutOffer();
  const std::string asked = AskedAtRegistration(Answer::No);
  EXPECT_EQ(asked.find("دفتر رقم\u200cهاي گوشي\u200cهاي اين شمارش باز نشده است"), 0U) << asked;
  EXPECT_FALSE(Counting().IsFinal());
  Save();
  EXPECT_FALSE(Counting().IsBeingEntered());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "the next Edit offers them";
}

TEST_F(FloorLeftAtSave, In_a_journal_that_cannot_be_read_are_asked_about_before_a_registration) {
  ReplaceJournalByFolder();
  EditWithoutOffer();
  EXPECT_NE(AskedAtRegistration(Answer::Yes), "");
  EXPECT_TRUE(Counting().IsFinal());
}

}  // namespace
}  // namespace koru
