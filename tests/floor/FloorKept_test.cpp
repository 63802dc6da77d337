// Acknowledged figures are in the counting or in a journal, whatever the desk does.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

class FloorKept : public FloorWorld {
 protected:
  [[nodiscard]] std::size_t Journalled() const {
    return journal_.Read().empty() ? 0 : ReadJournal(journal_.Read()).figures.size();
  }
  /// While a figure is left, the desk types over its cell and clears it.
  void CrashTypeOverAndCrash() {
    Crash();
    StartAndOpen();
    Type(1, LineColumn::FirstCounting, "9");
    Type(1, LineColumn::FirstCounting, "");
    ASSERT_TRUE(session_->Commit());
    Crash();
    StartAndOpen();
  }
  /// The figures of the journal that was set aside last.
  [[nodiscard]] std::size_t SetAside() const {
    return journal_.aside.empty() ? 0 : ReadJournal(journal_.aside[0]).figures.size();
  }
  void Cancel() {
    messages.WillAnswer(Answer::Yes);
    ASSERT_TRUE(Desk().cmdCancel.UserClick());
  }
  /// Another station has changed the counting; the desk saves, and chooses to see what is stored instead.
  void SaveAndShowStored(const char* change) {
    database.Execute(change);
    Desk().Timer1.Fire();
    ASSERT_TRUE(Desk().cmdTmpSave.UserClick());
    ASSERT_EQ(DeskMode(), DocumentMode::Viewing);
    NewMessages();
  }
  void ExpectTakenBack() {
    EXPECT_EQ(SetAside(), 1U);
    Start();
    Open();
    ASSERT_TRUE(session_->TakeBackSetAside());
    EXPECT_EQ(session_->Replay().entered, 1U);
    EXPECT_EQ(Count(kTeaLine, 1), "12");
  }
};

TEST_F(FloorKept, When_the_desk_shows_what_another_station_has_stored_instead_of_saving) {
  Set(1, kTeaLine, "12");
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::Yes);
  SaveAndShowStored(
      "update tblInventoryCountingDetail set SystemCounting=77 where CountingID=20 and RowNumber=2");
  EXPECT_EQ(CellOf(1, LineColumn::FirstCounting), "");
  EXPECT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  ExpectTakenBack();
}

TEST_F(FloorKept, When_another_station_has_registered_the_counting_and_the_desk_shows_that) {
  Set(1, kTeaLine, "12");
  messages.WillAnswer(Answer::Yes);
  SaveAndShowStored("update tblInventoryCounting set Code=5 where ID=20");
  EXPECT_TRUE(Desk().IsFinal());
  EXPECT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  EXPECT_EQ(SetAside(), 1U);
}

TEST_F(FloorKept, When_the_host_shows_the_same_counting_again) {
  Set(1, kTeaLine, "12");
  ASSERT_TRUE(program_->View(20));
  Desk().Timer1.Fire();
  EXPECT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  ExpectTakenBack();
}

TEST_F(FloorKept, When_an_earlier_save_was_followed_by_an_edit_that_is_cancelled) {
  SaveAndEdit();
  Set(1, kTeaLine, "12");
  Cancel();
  ExpectTakenBack();
}

TEST_F(FloorKept, A_cancel_of_an_entry_without_a_change_is_a_pause) {
  Cancel();
  EXPECT_EQ(session_->Ended(), FloorSession::End::None);
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  EXPECT_TRUE(session_->IsOpen());
}

TEST_F(FloorKept, When_a_replay_finds_no_line_and_the_rest_is_saved) {
  Set(1, kSugarLine, "13");
  Crash();
  Start();
  Lines().RemoveItem(2);
  Open();
  ASSERT_EQ(session_->Replay().gone.size(), 1U);
  Save();
  EXPECT_EQ(Journalled(), 0U);
  EXPECT_EQ(SetAside(), 1U);
}

TEST_F(FloorKept, When_a_save_comes_before_the_replay_and_a_crash_after_it) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  SaveAndEdit();
  EXPECT_EQ(session_->Replay().entered, 1U);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorKept, When_the_desk_has_typed_and_cleared_a_cell_before_the_replay) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  Type(1, LineColumn::FirstCounting, "9");
  Type(1, LineColumn::FirstCounting, "");
  EXPECT_EQ(session_->Replay().entered, 1U);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorKept, When_the_desk_has_typed_and_cleared_a_cell_whose_figure_is_left_before_a_crash) {
  Set(1, kTeaLine, "12");
  CrashTypeOverAndCrash();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorKept, When_the_desk_does_without_a_figure_over_which_it_has_typed_and_cleared_before_a_crash) {
  const FloorFigure figure{7, kTeaLine, FloorFigure::Operation::Set, "12", ""};
  Send(1, figure);
  CrashTypeOverAndCrash();
  session_->ForgoLeft();
  EXPECT_EQ(SetAside(), 3U);
  EXPECT_EQ(Send(1, figure).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorKept, What_another_station_has_stored_stays_where_the_desk_has_typed_over_it_and_back) {
  Set(1, kTeaLine, "12");
  Crash();
  database.Execute(
      "update tblInventoryCountingDetail set FirstCounting=8 where CountingID=20 and RowNumber=1");
  StartAndOpen();
  Type(1, LineColumn::FirstCounting, "9");
  Type(1, LineColumn::FirstCounting, "8");
  ASSERT_TRUE(session_->Commit());
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().replaced.size(), 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "8");
}

TEST_F(FloorKept, When_older_figures_that_were_set_aside_come_back_where_a_newer_one_is) {
  Set(1, kTeaLine, "5");
  Set(1, kSugarLine, "3");
  Cancel();
  StartAndOpen();
  Set(1, kTeaLine, "7");
  ASSERT_TRUE(session_->TakeBackSetAside());
  const ReplayedFigures replayed = session_->Replay();
  EXPECT_EQ(replayed.entered, 1U);
  EXPECT_EQ(replayed.replaced.size(), 1U);
  Crash();
  StartAndOpen();
  session_->Replay();
  EXPECT_EQ(Count(kTeaLine, 1), "7");
  EXPECT_EQ(Count(kSugarLine, 1), "3");
}

TEST_F(FloorKept, Older_journals_that_were_set_aside_are_taken_back_past_newer_ones_of_no_use) {
  Set(1, kTeaLine, "12");
  Cancel();
  StartAndOpen();
  Set(1, kSugarLine, "3");
  Cancel();
  ASSERT_EQ(journal_.aside.size(), 2U);
  journal_.aside.insert(journal_.aside.begin(), "damaged\n");
  StartAndOpen();
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Left().Cells()[0].line, kSugarLine) << "the last one that can be read";
  EXPECT_EQ(session_->Replay().entered, 1U);
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  EXPECT_FALSE(session_->TakeBackSetAside());
}

TEST_F(FloorKept, Figures_that_cannot_be_entered_do_not_hide_older_ones_that_were_set_aside) {
  Set(1, kTeaLine, "12");
  Cancel();
  StartAndOpen();
  Set(1, kSugarLine, "3");
  Cancel();
  StartAndOpen();
  Lines().RemoveItem(2);
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().gone.size(), 1U) << "the desk is informed of it";
}

TEST_F(FloorKept, A_figure_that_the_desk_takes_back_is_not_added_again_by_its_device_even_after_a_crash) {
  const FloorFigure first{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, first);
  Send(1, {8, kTeaLine, FloorFigure::Operation::Add, "2", {}});
  Cancel();
  StartAndOpen();
  ASSERT_TRUE(session_->TakeBackSetAside());
  session_->Replay();
  Crash();
  StartAndOpen();
  session_->Replay();
  EXPECT_EQ(Send(1, first).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "7");
}

TEST_F(FloorKept, When_the_desk_does_without_them_the_devices_keep_the_names_that_they_have_given_since) {
  session_->Hello(1, "d1", "گوشي");
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  session_->Hello(1, "d1", "گوشي سارا");
  session_->Hello(2, "d2", "تبلت");
  const auto names = [this] {
    Texts all;
    for (const FloorDevice& device : session_->Devices()) all.push_back(device.name);
    return all;
  };
  ASSERT_TRUE(session_->ForgoLeft());
  EXPECT_EQ(names(), (Texts{"گوشي سارا", "تبلت"}));
  EXPECT_EQ(session_->Devices()[0].received, 0);
  Set(2, kTeaLine, "1");
  Crash();
  StartAndOpen();
  EXPECT_EQ(names(), (Texts{"گوشي سارا", "تبلت"}));
}

TEST_F(FloorKept, When_the_desk_does_without_them_and_the_disk_is_full) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  journal_.isFull = true;
  session_->ForgoLeft();
  EXPECT_EQ(session_->Left().Cells().size(), 1U) << "still to be decided";
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(failures_.size(), 1U);
  journal_.isFull = false;
  EXPECT_TRUE(session_->Commit());
  EXPECT_EQ(Journalled(), 1U);
  session_->ForgoLeft();
  EXPECT_TRUE(session_->Left().Cells().empty());
  EXPECT_EQ(SetAside(), 1U);
}

TEST_F(FloorKept, When_undecided_ones_cannot_be_set_aside_by_a_save) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  journal_.isFull = true;
  SaveAndEdit();
  journal_.isFull = false;
  EXPECT_TRUE(session_->Commit());
  EXPECT_EQ(Journalled(), 1U);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Left().Cells().size(), 1U);
}

TEST_F(FloorKept, What_the_desk_does_after_it_has_stopped_the_session_is_not_offered_to_be_undone) {
  Set(1, kSugarLine, "5");
  session_->Stop();
  Type(2, LineColumn::FirstCounting, "");
  session_.reset();
  Open();
  EXPECT_TRUE(session_->Left().Cells().empty());
}

TEST_F(FloorKept, What_the_desk_imports_is_on_the_disk_with_the_next_commit) {
  {
    const GridRedrawOff redrawOff(Lines());
    const BatchEdit batch(Lines());
    for (int row = 1; row < Lines().Rows(); ++row) Type(row, LineColumn::SecondCounting, "7");
  }
  ASSERT_TRUE(session_->Commit());
  EXPECT_EQ(Journalled(), 4U);
}

TEST_F(FloorKept, What_the_desk_does_after_it_has_stopped_the_session_is_on_the_disk_with_the_next_tick) {
  Set(1, kTeaLine, "5");
  session_->Stop();
  Lines().UserSort({LineColumn::Barcode, RowOrder::Descending});
  Type(4, LineColumn::FirstCounting, "8");
  Desk().Timer1.Fire();
  EXPECT_EQ(Journalled(), 2U);
}

}  // namespace
}  // namespace koru::test
