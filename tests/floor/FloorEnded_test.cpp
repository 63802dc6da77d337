// A session that has ended has no journal any more: nothing makes it again.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

class FloorEnded : public FloorWorld {
 protected:
  void Register() {
    for (int row = 1; row <= 4; ++row) Type(row, LineColumn::AcceptedCounting, "12");
    Desk().Timer1.Fire();
    ASSERT_TRUE(Desk().cmdIsFinalized.UserClick());
    ASSERT_EQ(session_->Ended(), FloorSession::End::Registered);
  }
  void Cancel() {
    messages.WillAnswer(Answer::Yes);
    ASSERT_TRUE(Desk().cmdCancel.UserClick());
    ASSERT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  }
};

TEST_F(FloorEnded, By_a_registration_is_not_written_to_by_a_new_code_or_a_device) {
  Set(1, kTeaLine, "12");
  Register();
  session_->RenewCode(1);
  session_->Hello(2, "d2", "تبلت");
  static_cast<void>(session_->Commit());
  EXPECT_EQ(journal_.Read(), "");
  EXPECT_EQ(failures_, Texts{}) << "there is nothing that the desk could do";
}

TEST_F(FloorEnded, By_a_registration_on_a_full_disk_does_not_begin_a_journal_when_there_is_room_again) {
  Set(1, kTeaLine, "12");
  journal_.hasRoom = false;
  Register();
  EXPECT_EQ(journal_.Read(), "");
  journal_.hasRoom = true;
  EXPECT_TRUE(session_->Commit()) << "the database has all of it";
  EXPECT_EQ(journal_.Read(), "");
}

TEST_F(FloorEnded, By_a_cancel_on_a_full_disk_never_acknowledges_what_is_not_in_the_journal) {
  Set(1, kTeaLine, "12");
  journal_.hasRoom = false;
  const FloorFigure late{50, kTeaLine, FloorFigure::Operation::Set, "13", "12"};
  EXPECT_EQ(session_->Enter(1, "d1", {&late, 1}).at(0).state, FigureState::Stored);
  EXPECT_FALSE(session_->Commit());
  Cancel();
  journal_.hasRoom = true;
  EXPECT_FALSE(session_->Commit());
  EXPECT_EQ(journal_.Read(), "");
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(ReadJournal(journal_.aside[0]).figures.size(), 1U);
}

TEST_F(FloorEnded, By_a_cancel_does_not_begin_a_journal_for_left_figures_that_the_desk_forgoes_then) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  ASSERT_EQ(session_->Left().Cells().size(), 1U);
  ASSERT_TRUE(Type(3, FloorLines::ColumnOf(1), "4"));
  Cancel();
  EXPECT_TRUE(session_->ForgoLeft());
  EXPECT_EQ(journal_.Read(), "");
  EXPECT_EQ(journal_.aside.size(), 1U);
}

TEST_F(FloorEnded, By_the_end_of_the_form_writes_what_the_disk_could_not_take_as_soon_as_it_can) {
  Set(1, kTeaLine, "12");
  journal_.hasRoom = false;
  const FloorFigure late{50, kTeaLine, FloorFigure::Operation::Set, "13", "12"};
  EXPECT_EQ(session_->Enter(1, "d1", {&late, 1}).at(0).state, FigureState::Stored);
  Desk().Unload();
  journal_.hasRoom = true;
  EXPECT_TRUE(session_->Commit());
  EXPECT_EQ(ReadJournal(journal_.synced).figures.size(), 2U) << "the next Edit offers both";
}

TEST_F(FloorEnded, By_the_desk_keeps_nothing_of_a_device_that_has_brought_no_figure) {
  EXPECT_EQ(Add(1, kTeaLine, "-3").state, FigureState::Refused);
  SaveAndEdit();
  Crash();
  StartAndOpen();
  session_->Stop();
  Save();
  EXPECT_EQ(session_->Ended(), FloorSession::End::Stopped);
  EXPECT_EQ(journal_.Read(), "");
  EXPECT_EQ(journal_.aside.size(), 0U);
}

}  // namespace
}  // namespace koru::test
