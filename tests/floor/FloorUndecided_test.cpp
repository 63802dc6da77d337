// Left figures that the desk has not decided about when the counting is saved: they are set aside, and a
// device that sends one again can enter it.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

const FloorFigure kOfTea{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
const FloorFigure kOfSugar{8, kSugarLine, FloorFigure::Operation::Add, "3", {}};
const FloorFigure kMoreSugar{9, kSugarLine, FloorFigure::Operation::Add, "2", {}};

class FloorUndecided : public FloorWorld {
 protected:
  /// The program ends before a save with five of tea and three of sugar.
  void CountAndCrash() {
    Send(1, kOfTea);
    Send(1, kOfSugar);
    Crash();
  }
  /// The five of tea have been saved.
  void StoreTea() {
    database.Execute(
        "update tblInventoryCountingDetail set FirstCounting=5 where CountingID=20 and RowNumber=1");
  }
  void CountCrashAndOpen() {
    CountAndCrash();
    StoreTea();
    StartAndOpen();
    ASSERT_EQ(session_->Left().Cells().size(), 1U);
  }
  /// The counting has the three of sugar, and the two that were added to them are left.
  void CountTwiceCrashAndOpen() {
    Send(1, kOfSugar);
    Send(1, kMoreSugar);
    Crash();
    database.Execute(
        "update tblInventoryCountingDetail set FirstCounting=3 where CountingID=20 and RowNumber=2");
    StartAndOpen();
    ASSERT_EQ(session_->Left().Cells().size(), 1U);
  }
  /// Both additions come once more: the three are counted already, the two are not.
  void ExpectMoreSugarAlone() {
    EXPECT_EQ(Send(1, kOfSugar).state, FigureState::Stored);
    EXPECT_EQ(Count(kSugarLine, 1), "3");
    EXPECT_EQ(Send(1, kMoreSugar).state, FigureState::Stored);
    EXPECT_EQ(Count(kSugarLine, 1), "5");
  }
  /// Both figures come once more: tea is counted already, sugar is not.
  void ExpectSugarAlone() {
    EXPECT_EQ(Send(1, kOfTea).state, FigureState::Stored);
    EXPECT_EQ(Count(kTeaLine, 1), "5");
    EXPECT_EQ(Send(1, kOfSugar).state, FigureState::Stored);
    EXPECT_EQ(Count(kSugarLine, 1), "3");
  }
};

TEST_F(FloorUndecided, Are_counted_when_their_device_sends_them_once_more_after_the_desk_has_forgone_them) {
  CountCrashAndOpen();
  SaveAndEdit();
  ASSERT_TRUE(session_->ForgoLeft());
  ExpectSugarAlone();
}

TEST_F(FloorUndecided, Are_counted_when_their_device_sends_them_once_more_after_another_crash) {
  CountCrashAndOpen();
  SaveAndEdit();
  Crash();
  StartAndOpen();
  ExpectSugarAlone();
}

TEST_F(FloorUndecided, Are_counted_when_their_device_sends_them_to_the_session_after_one_that_was_stopped) {
  CountCrashAndOpen();
  session_->Stop();
  SaveAndEdit();
  OpenNextSession();
  ExpectSugarAlone();
}

TEST_F(FloorUndecided, Are_counted_when_they_could_be_set_aside_at_the_end_of_the_session_alone) {
  CountCrashAndOpen();
  journal_.isFull = true;
  Save();
  journal_.isFull = false;
  ASSERT_TRUE(program_->View(10));
  ASSERT_FALSE(session_->IsOpen());
  StartAndOpen();
  ExpectSugarAlone();
}

TEST_F(FloorUndecided, Are_counted_when_the_disk_was_full_and_the_program_ended_after_the_save) {
  CountCrashAndOpen();
  journal_.hasRoom = false;
  Save();
  Crash();
  journal_.hasRoom = true;
  StartAndOpen();
  ExpectSugarAlone();
}

TEST_F(FloorUndecided, Wait_for_the_desk_after_the_save_and_are_not_added_again_when_it_has_taken_them) {
  Send(1, kOfTea);
  Send(1, {9, kTeaLine, FloorFigure::Operation::Add, "2", {}});
  Crash();
  StartAndOpen();
  SaveAndEdit();
  EXPECT_EQ(Send(1, kOfTea).state, FigureState::Paused) << "it is not in the counting";
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Send(1, kOfTea).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "7");
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Send(1, kOfTea).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "7");
}

TEST_F(FloorUndecided, Leave_those_that_the_save_holds_saved_when_the_desk_takes_them) {
  CountCrashAndOpen();
  SaveAndEdit();
  EXPECT_FALSE(session_->HasUnsaved());
  session_->Replay();
  for (const JournalFigure& figure : ReadJournal(journal_.Read()).figures)
    EXPECT_EQ(figure.figure.line, kSugarLine);
}

TEST_F(FloorUndecided, Leave_those_that_the_desk_has_corrected_since_as_they_are) {
  CountCrashAndOpen();
  Type(1, LineColumn::FirstCounting, "6");
  SaveAndEdit();
  ASSERT_TRUE(session_->ForgoLeft());
  EXPECT_EQ(Send(1, kOfTea).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "6") << "the desk knew the five";
}

TEST_F(FloorUndecided, Leave_those_of_devices_after_a_replay_that_could_not_enter_all_of_them) {
  Set(1, {"G3", 1}, "7");
  Crash();
  StartAndOpen();
  Delete(3);
  ASSERT_EQ(session_->Replay().gone.size(), 1U);
  ASSERT_EQ(Send(1, kOfTea).state, FigureState::Stored);
  SaveAndEdit();
  EXPECT_EQ(Send(1, kOfTea).text, "5");
  Crash();
  StartAndOpen();
  EXPECT_EQ(Send(1, kOfTea).text, "5");
}

TEST_F(FloorUndecided, Leave_what_the_desk_has_corrected_as_it_is_when_it_forgoes_them_without_a_save) {
  CountCrashAndOpen();
  Type(1, LineColumn::FirstCounting, "6");
  ASSERT_TRUE(session_->ForgoLeft());
  EXPECT_EQ(Send(1, kOfTea).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "6");
}

TEST_F(FloorUndecided, Are_not_added_to_what_the_desk_has_typed_for_them_after_the_save) {
  CountCrashAndOpen();
  SaveAndEdit();
  Type(2, LineColumn::FirstCounting, "3");
  ASSERT_TRUE(session_->ForgoLeft());
  EXPECT_EQ(Send(1, kOfSugar).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "3");
}

TEST_F(FloorUndecided, Are_not_added_to_what_the_desk_has_typed_for_them_and_saved) {
  CountCrashAndOpen();
  SaveAndEdit();
  Type(2, LineColumn::FirstCounting, "3");
  Save();
  ASSERT_TRUE(program_->View(20));
  ASSERT_FALSE(session_->IsOpen());
  session_.reset();
  StartAndOpen();
  EXPECT_EQ(Send(1, kOfSugar).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "3");
}

TEST_F(FloorUndecided,
       Leave_the_part_of_a_figure_that_the_counting_has_counted_when_the_desk_forgoes_the_rest) {
  CountTwiceCrashAndOpen();
  ASSERT_TRUE(session_->ForgoLeft());
  ExpectMoreSugarAlone();
}

TEST_F(FloorUndecided,
       Leave_the_part_of_a_figure_that_the_counting_has_counted_when_a_save_leaves_out_the_rest) {
  CountTwiceCrashAndOpen();
  SaveAndEdit();
  Crash();
  StartAndOpen();
  ExpectMoreSugarAlone();
}

}  // namespace
}  // namespace koru::test
