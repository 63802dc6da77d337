// What becomes of figures of the floor when the entry is cancelled or saved.

#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {
namespace {

constexpr const char* kFormsQuestion = "آيا مطمئن هستيد؟";

TEST_F(FloorDeskTest, Cancel_says_first_that_the_figures_are_kept_aside_and_closes_it) {
  OpenInEdit();
  Set(2, kRice, "9");
  Set(3, kOil, "8");
  Set(3, kOil, "abc", "8");
  const std::string said = SaidAtCancel(2);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها در اين شمارش ذخيره نشده است."), 0U) << messages[0];
  EXPECT_NE(messages[0].find("30 روز كنار مي\u200cماند"), std::string::npos) << messages[0];
  EXPECT_NE(messages[0].find("«بازگرداندن كنارگذاشته\u200cها...»"), std::string::npos) << messages[0];
  EXPECT_EQ(messages[1], kFormsQuestion);
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_NE(said.find("30 روز كنار مي\u200cماند"), std::string::npos) << said;
}

TEST_F(FloorDeskTest, No_to_the_floors_question_cancels_nothing_whatever_would_have_cancelled) {
  OpenInEdit();
  Set(2, kRice, "9");
  const auto cancels = std::vector<std::function<void()>>{[this] { Counting().cmdCancel.UserClick(); },
                                                          [this] { Counting().cmdExit.UserClick(); },
                                                          [this] { window->close(); }};
  for (const auto& cancel : cancels) {
    world.messages.WillAnswer(Answer::No);
    cancel();
    const auto messages = NewMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_NE(messages[0], kFormsQuestion);
    EXPECT_TRUE(Counting().IsBeingEntered());
    EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
    EXPECT_EQ(Set(3, kOil, "8").state, FigureState::Stored) << "the floor is open";
    Set(3, kOil, "", "8");
  }
}

TEST_F(FloorDeskTest, A_cancelled_entry_without_figures_of_the_floor_says_nothing_about_them) {
  OpenInEdit();
  Counting().flexDetail.UserEdit(1, LineColumn::ThirdCounting, "4");
  EXPECT_EQ(SaidAtCancel(), "");
  EXPECT_EQ(NewMessages(), std::vector<std::string>{kFormsQuestion});
  EXPECT_FALSE(desk->IsServed());
}

TEST_F(FloorDeskTest, A_cancel_that_changes_nothing_in_the_counting_asks_nothing_about_the_floor) {
  OpenInEdit();
  EXPECT_EQ(Set(1, kRice, "10").state, FigureState::Stored) << "it is in the cell already";
  EXPECT_EQ(SaidAtCancel(), "");
  EXPECT_EQ(NewMessages(), std::vector<std::string>{kFormsQuestion});
}

TEST_F(FloorDeskTest, A_save_that_Edit_follows_at_once_leaves_no_unsaved_figures) {
  OpenInEdit();
  Set(2, kRice, "9");
  Tick();
  ASSERT_TRUE(Counting().cmdTmpSave.UserClick());
  ASSERT_TRUE(Counting().cmdEdit.UserClick());
  Set(3, kOil, "8");
  SaidAtCancel(2);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].find("1 رقم گوشي\u200cها"), 0U) << messages[0];
}

TEST_F(FloorDeskTest, Figures_saved_after_the_floor_was_closed_are_none_of_a_later_cancel) {
  OpenInEdit();
  Set(2, kRice, "9");
  world.messages.WillAnswer(Answer::Yes);
  desk->Stop();
  Save();
  OpenInEdit();
  Counting().flexDetail.UserEdit(1, LineColumn::ThirdCounting, "4");
  EXPECT_EQ(SaidAtCancel(), "");
  EXPECT_FALSE(desk->IsServed());
}

TEST_F(FloorDeskTest, What_was_set_aside_can_be_taken_back) {
  OpenInEdit();
  Set(2, kRice, "9");
  SaidAtCancel(2);
  StartAnew();
  OpenInEdit();
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "");
  EXPECT_TRUE(OffersLeft([this] { Click(*desk->Dialog(), "floorTakeBack"); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

}  // namespace
}  // namespace koru
