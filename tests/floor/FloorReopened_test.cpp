// A session that the desk opens again, and one that follows another: figures find the lines that they were
// counted for.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

class FloorReopened : public FloorWorld {
 protected:
  void StopAndReopen() {
    session_->Stop();
    ASSERT_TRUE(session_->Reopen());
  }
};

TEST_F(FloorReopened, Takes_figures_with_the_codes_and_answers_of_before) {
  const std::string code = session_->Code(1);
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, add);
  StopAndReopen();
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(session_->CountOf(code), 1);
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "5");
  EXPECT_EQ(Set(2, kTeaLine, "6").state, FigureState::Stored);
}

TEST_F(FloorReopened, An_addition_whose_answer_was_lost_is_not_applied_again_by_a_later_session) {
  const std::string code = session_->Code(1);
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, add);
  for (int session = 0; session < 2; ++session) {
    Save();
    ASSERT_TRUE(program_->View(10));
    ASSERT_FALSE(session_->IsOpen());
    ASSERT_EQ(session_->Ended(), FloorSession::End::OtherCounting);
    StartAndOpen();
    EXPECT_NE(session_->Code(1), code);
    EXPECT_TRUE(session_->Devices().empty());
  }
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "5");
}

TEST_F(FloorReopened, An_addition_that_was_saved_on_a_full_disk_is_not_applied_again_by_a_later_session) {
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, add);
  journal_.hasRoom = false;
  Save();
  ASSERT_TRUE(program_->View(10));
  ASSERT_FALSE(session_->IsOpen());
  journal_.hasRoom = true;
  StartAndOpen();
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "5");
}

TEST_F(FloorReopened, An_addition_that_a_cancel_has_taken_back_is_applied_by_a_later_session) {
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, add);
  messages.WillAnswer(Answer::Yes);
  Desk().cmdCancel.UserClick();
  ASSERT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  StartAndOpen();
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "5");
}

TEST_F(FloorReopened, An_addition_that_a_cancel_has_left_on_the_form_is_the_next_sessions_own) {
  const FloorFigure add{7, kSugarLine, FloorFigure::Operation::Add, "3", {}};
  Send(1, add);
  CancelAndEdit();
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "3");
  EXPECT_TRUE(session_->HasUnsaved()) << "Cancel asks";
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Left().Cells().size(), 1U);
}

TEST_F(FloorReopened, An_addition_that_a_second_cancel_takes_off_the_form_is_applied_by_a_later_session) {
  const FloorFigure add{7, kSugarLine, FloorFigure::Operation::Add, "3", {}};
  Send(1, add);
  CancelAndEdit();
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ViewEditAndOpen();
  EXPECT_EQ(Count(kSugarLine, 1), "");
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "3");
}

TEST_F(FloorReopened, Lines_of_one_barcode_keep_their_keys_when_the_desk_has_deleted_one_meanwhile) {
  Set(1, kOtherTeaLine, "8");
  session_->Stop();
  Delete(1);
  ASSERT_TRUE(session_->Reopen());
  EXPECT_EQ(Count(kOtherTeaLine, 1), "8");
  EXPECT_EQ(Add(1, kTeaLine, "5").state, FigureState::Gone) << "the figure of the deleted line";
  EXPECT_EQ(Count(kOtherTeaLine, 1), "8");
}

TEST_F(FloorReopened, Figures_of_a_line_that_the_desk_has_deleted_meanwhile_are_not_left) {
  Set(1, kSugarLine, "8");
  session_->Stop();
  Delete(2);
  ASSERT_TRUE(session_->Reopen());
  EXPECT_TRUE(session_->Left().Cells().empty());
  EXPECT_TRUE(session_->IsOpen());
}

TEST_F(FloorReopened, Left_figures_are_still_to_be_decided) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  StopAndReopen();
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(session_->Replay().entered, 1U);
}

TEST_F(FloorReopened, Is_not_possible_after_the_entry_has_ended) {
  Set(1, kTeaLine, "12");
  session_->Stop();
  SaveAndEdit();
  EXPECT_FALSE(session_->Reopen());
  EXPECT_EQ(session_->Ended(), FloorSession::End::Stopped);
}

TEST_F(FloorReopened, Figures_that_are_taken_back_find_their_lines_after_another_one_was_deleted_and_saved) {
  Delete(1);
  SaveAndEdit();
  Set(1, kOtherTeaLine, "8");
  ViewEditAndOpen();
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kOtherTeaLine, 1), "8");
}

TEST_F(FloorReopened, A_session_after_a_save_in_another_order_finds_its_lines_after_a_crash) {
  Set(1, kTeaLine, "1");
  Set(1, kOtherTeaLine, "2");
  session_->Stop();
  Lines().UserSort({LineColumn::FirstCounting, RowOrder::Descending});
  SaveAndEdit();
  session_.reset();
  Open();
  for (const int ordinal : {1, 2}) {
    const std::string first = Count({"G1", ordinal}, 1);
    EXPECT_EQ(Set(2, {"G1", ordinal}, first).state, FigureState::Stored);
  }
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 2U);
  for (const int ordinal : {1, 2}) EXPECT_EQ(Count({"G1", ordinal}, 1), Count({"G1", ordinal}, 2));
}

TEST_F(FloorReopened, A_session_after_sorting_a_counting_that_was_viewed_finds_its_lines_after_a_crash) {
  Type(1, LineColumn::ThirdCounting, "100");
  Type(4, LineColumn::ThirdCounting, "400");
  session_->Stop();
  Save();
  session_.reset();
  Lines().UserSort({LineColumn::ThirdCounting, RowOrder::Descending});
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  Open();
  const std::string third = Count(kTeaLine, 3);
  EXPECT_EQ(Set(1, kTeaLine, "7").state, FigureState::Stored);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "7");
  EXPECT_EQ(Count(kTeaLine, 3), third);
}

TEST_F(FloorReopened, A_cancel_after_sorting_a_counting_that_was_viewed_keeps_the_keys) {
  Type(1, LineColumn::ThirdCounting, "100");
  Type(4, LineColumn::ThirdCounting, "400");
  Save();
  Lines().UserSort({LineColumn::ThirdCounting, RowOrder::Descending});
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  ASSERT_TRUE(session_->IsOpen());
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  ASSERT_EQ(Count(kTeaLine, 3), "100");
  EXPECT_EQ(Set(1, kTeaLine, "7").state, FigureState::Stored);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 3), "100");
}

TEST_F(FloorReopened, Figures_that_a_replay_has_not_entered_are_kept_aside_by_the_save) {
  Set(1, kTeaLine, "12");
  Crash();
  database.Execute(
      "update tblInventoryCountingDetail set FirstCounting=9 where CountingID=20 and RowNumber=1");
  StartAndOpen();
  EXPECT_EQ(session_->Replay().replaced.size(), 1U);
  Save();
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(ReadJournal(journal_.aside[0]).figures.at(0).answer.text, "12");
}

TEST_F(FloorReopened,
       An_addition_that_is_saved_beside_left_figures_after_a_stop_is_known_to_the_next_session) {
  Set(1, {"G3", 1}, "7");
  Crash();
  StartAndOpen();
  Delete(3);
  EXPECT_EQ(session_->Replay().gone.size(), 1U);
  const FloorFigure add{40, kSugarLine, FloorFigure::Operation::Add, "5", {}};
  ASSERT_EQ(Send(1, add).state, FigureState::Stored);
  session_->Stop();
  SaveAndEdit();
  session_.reset();
  Open();
  EXPECT_EQ(Send(1, add).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "5");
}

}  // namespace
}  // namespace koru::test
