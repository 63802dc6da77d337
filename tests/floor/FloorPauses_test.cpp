// When the session is open, paused and ended, and what the journal is then.

#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

class FloorPauses : public FloorWorld {
 protected:
  [[nodiscard]] std::vector<JournalFigure> Journalled() const { return ReadJournal(journal_.synced).figures; }
  [[nodiscard]] std::string Stored(const char* column) {
    return database.Scalar(std::string("select ") + column +
                           " from tblInventoryCountingDetail where CountingID=20 and RowNumber=1");
  }
};

TEST_F(FloorPauses, A_session_begins_in_the_edit_of_a_stored_counting_alone) {
  session_.reset();
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  EXPECT_THROW(Open(), InputError) << "viewed";
  ASSERT_TRUE(Desk().cmdNew.UserClick());
  EXPECT_THROW(Open(), InputError) << "new: its lines are nowhere yet";
}

TEST_F(FloorPauses, A_temporary_save_pauses_and_Edit_resumes_with_the_same_codes) {
  const std::string code = session_->Code(1);
  Set(1, kTeaLine, "12");
  Save();
  EXPECT_EQ(Stored("FirstCounting"), "12");
  EXPECT_EQ(session_->Ended(), FloorSession::End::None);
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(session_->CountOf(code), 1);
  EXPECT_EQ(Journalled().size(), 0U) << "the database has it";
  const FloorFigure waiting{50, kTeaLine, FloorFigure::Operation::Set, "13", "12"};
  EXPECT_EQ(Send(1, waiting).state, FigureState::Paused);
  EXPECT_EQ(Journalled().size(), 0U);
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(session_->Code(1), code);
  EXPECT_EQ(Send(1, waiting).state, FigureState::Stored) << "paused is no answer that is kept";
  EXPECT_EQ(Count(kTeaLine, 1), "13");
}

TEST_F(FloorPauses, A_figure_that_was_saved_is_not_applied_again_even_by_a_program_that_was_started_anew) {
  const FloorFigure add{7, kTeaLine, FloorFigure::Operation::Add, "5", {}};
  Send(1, add);
  SaveAndEdit();
  EXPECT_EQ(Send(1, add).text, "5");
  Crash();
  StartAndOpen();
  EXPECT_EQ(Send(1, add), (FloorAnswer{7, FigureState::Stored, "5", "", ""}));
  EXPECT_EQ(Count(kTeaLine, 1), "5");
}

TEST_F(FloorPauses, A_save_that_fails_keeps_the_session_open_and_its_journal) {
  Set(1, kTeaLine, "12");
  failing.Plan().FailAt(2);
  Desk().cmdTmpSave.UserClick();
  failing.Plan().FailAt(0);
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
  EXPECT_EQ(session_->Ended(), FloorSession::End::None);
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(Journalled().size(), 1U);
  EXPECT_EQ(Set(1, kTeaLine, "13", "12").state, FigureState::Stored);
}

TEST_F(FloorPauses, Registration_ends_the_session_and_removes_the_journal) {
  const std::string code = session_->Code(1);
  Set(1, kTeaLine, "12");
  for (int row = 1; row <= 4; ++row) Type(row, LineColumn::AcceptedCounting, "12");
  Desk().Timer1.Fire();
  ASSERT_TRUE(Desk().cmdIsFinalized.UserClick());
  ASSERT_TRUE(Desk().IsFinal());
  EXPECT_EQ(session_->Ended(), FloorSession::End::Registered);
  EXPECT_EQ(session_->CountOf(code), std::nullopt);
  EXPECT_EQ(Set(1, kTeaLine, "13", "12").state, FigureState::Paused);
  EXPECT_EQ(journal_.Read(), "");
  ASSERT_EQ(journal_.aside.size(), 1U) << "the numbers of what devices may send again";
  EXPECT_TRUE(ReadJournal(journal_.aside[0]).figures.empty());
}

TEST_F(FloorPauses, Cancel_ends_the_session_and_keeps_the_journal_aside) {
  Set(1, kTeaLine, "12");
  messages.WillAnswer(Answer::No);
  Desk().cmdCancel.UserClick();
  EXPECT_TRUE(session_->IsOpen());
  messages.WillAnswer(Answer::Yes);
  Desk().cmdCancel.UserClick();
  EXPECT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  EXPECT_EQ(journal_.Read(), "");
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(ReadJournal(journal_.aside[0]).figures.size(), 1U);

  Start();
  EXPECT_EQ(CellOf(1, LineColumn::FirstCounting), "");
  Open();
  EXPECT_TRUE(session_->IsOpen());
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_FALSE(session_->IsOpen()) << "until the desk has decided";
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  EXPECT_EQ(Journalled().size(), 2U) << "the figure and its replay are this session's now";
  EXPECT_EQ(Send(1, {1, kTeaLine, FloorFigure::Operation::Set, "12", ""}).state, FigureState::Stored)
      << "a device that never had its answer";
}

TEST_F(FloorPauses, Another_counting_ends_the_session) {
  Set(1, kTeaLine, "12");
  Save();
  ASSERT_TRUE(program_->View(10));
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(session_->Ended(), FloorSession::End::OtherCounting);
  EXPECT_EQ(journal_.Read(), "") << "all is saved";
  ASSERT_EQ(journal_.aside.size(), 1U) << "the numbers of what devices may send again";
  EXPECT_TRUE(ReadJournal(journal_.aside[0]).figures.empty());
  EXPECT_TRUE(session_->Lines(1).empty());
}

TEST_F(FloorPauses, Deleting_the_counting_ends_the_session) {
  Save();
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdDelete.UserClick());
  Desk().Timer1.Fire();
  EXPECT_EQ(session_->Ended(), FloorSession::End::OtherCounting);
}

TEST_F(FloorPauses, A_form_that_is_closed_leaves_a_journal_with_figures_and_removes_one_without) {
  Set(1, kTeaLine, "12");
  Desk().Unload();
  EXPECT_EQ(session_->Ended(), FloorSession::End::Unloaded);
  EXPECT_EQ(Journalled().size(), 1U);
  EXPECT_EQ(Set(1, kTeaLine, "13", "12").state, FigureState::Paused);
  EXPECT_TRUE(session_->Lines(1).empty());
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Left().Cells().size(), 1U);
  session_->Replay();
  Save();
  Desk().Unload();
  EXPECT_EQ(journal_.Read(), "");
}

TEST_F(FloorPauses, A_session_that_the_desk_stops_keeps_its_journal_until_the_save) {
  const std::string code = session_->Code(1);
  Set(1, kTeaLine, "12");
  session_->Stop();
  EXPECT_EQ(session_->CountOf(code), std::nullopt);
  EXPECT_EQ(Set(1, kTeaLine, "13", "12").state, FigureState::Paused);
  EXPECT_EQ(Journalled().size(), 1U);
  Save();
  EXPECT_EQ(journal_.Read(), "");
  EXPECT_EQ(session_->Ended(), FloorSession::End::Stopped);
}

TEST_F(FloorPauses, After_a_crash_the_figures_that_no_save_holds_are_replayed_once) {
  const std::string code = session_->Code(2);
  session_->Hello(1, "d1", "تبلت");
  Set(1, kTeaLine, "12");
  SaveAndEdit();
  Set(2, kTeaLine, "5");
  Add(2, kTeaLine, "7");
  Set(3, {"G1", 2}, "1000000001");
  Set(1, kSugarLine, "abc");
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Code(2), code);
  EXPECT_EQ(session_->Devices().at(0).name, "تبلت");
  EXPECT_EQ(session_->Left().Cells().size(), 2U);
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(session_->CountOf(code), 2);
  const FloorFigure early{90, kSugarLine, FloorFigure::Operation::Set, "1", ""};
  EXPECT_EQ(Send(2, early).state, FigureState::Paused);
  EXPECT_EQ(session_->Replay().entered, 2U);
  EXPECT_EQ(NewMessages(), Texts{}) << "the counter has read the warning";
  EXPECT_EQ(Count(kTeaLine, 1), "12");
  EXPECT_EQ(Count(kTeaLine, 2), "12");
  EXPECT_EQ(Count({"G1", 2}, 3), "1000000001");
  EXPECT_EQ(session_->Replay().entered, 0U);
  EXPECT_EQ(Send(2, {3, kTeaLine, FloorFigure::Operation::Add, "7", {}}).text, "12") << "the answer was lost";
  EXPECT_EQ(Send(2, early).state, FigureState::Stored);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 3U) << "nothing was saved in between";
  EXPECT_EQ(Count(kTeaLine, 2), "12");
}

TEST_F(FloorPauses, A_replay_leaves_what_the_desk_has_entered_later_and_names_what_it_cannot_enter) {
  Set(1, kSugarLine, "12");
  Set(2, kSugarLine, "13");
  Set(1, {"G3", 1}, "14");
  Crash();
  Start();
  Type(2, LineColumn::FirstCounting, "99");  // as from a draft
  Lines().RemoveItem(3);
  Open();
  const ReplayedFigures replayed = session_->Replay();
  EXPECT_EQ(replayed.entered, 1U);
  ASSERT_EQ(replayed.replaced.size(), 1U);
  EXPECT_EQ(replayed.replaced[0].line, kSugarLine);
  EXPECT_EQ(replayed.replaced[0].text, "12");
  ASSERT_EQ(replayed.gone.size(), 1U);
  EXPECT_EQ(replayed.gone[0].line, (LineKey{"G3", 1}));
  EXPECT_EQ(Count(kSugarLine, 1), "99");
  EXPECT_EQ(Count(kSugarLine, 2), "13");
}

TEST_F(FloorPauses, A_replay_knows_what_the_desk_had_entered_before_and_after_a_figure) {
  Type(1, LineColumn::FirstCounting, "5");
  Set(1, kTeaLine, "7", "5");
  Set(1, kSugarLine, "3");
  Type(2, LineColumn::FirstCounting, "8");
  Set(2, kSugarLine, "1");  // takes the desk's figures to the disk
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 3U);
  EXPECT_EQ(Count(kTeaLine, 1), "7") << "the desk's 5, which nobody had saved, was in between";
  EXPECT_EQ(Count(kSugarLine, 1), "8") << "the desk was the last";
}

TEST_F(FloorPauses, Left_figures_that_the_desk_does_without_are_set_aside_and_may_be_sent_anew) {
  const FloorFigure figure{7, kTeaLine, FloorFigure::Operation::Set, "12", ""};
  Send(1, figure);
  const std::string code = session_->Code(1);
  Crash();
  StartAndOpen();
  session_->ForgoLeft();
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(session_->Code(1), code);
  EXPECT_EQ(Count(kTeaLine, 1), "");
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(Send(1, figure).state, FigureState::Stored);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorPauses, Left_figures_that_the_desk_has_not_decided_about_are_set_aside_by_a_save) {
  Set(1, kTeaLine, "12");
  Crash();
  StartAndOpen();
  SaveAndEdit();
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(ReadJournal(journal_.aside[0]).figures.size(), 1U);
  EXPECT_EQ(session_->Left().Cells().size(), 1U) << "still to be decided";
  Crash();
  StartAndOpen();
  EXPECT_TRUE(session_->Left().Cells().empty());
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kTeaLine, 1), "12");
}

TEST_F(FloorPauses, Each_figure_is_reported_once_with_what_became_of_it) {
  std::vector<std::pair<std::string, FigureState>> decided;
  session_->Decided.Always([&](const JournalFigure& figure, const std::string& device) {
    decided.emplace_back(device + " " + figure.figure.text, figure.answer.state);
  });
  session_->Hello(1, "d1", "تبلت");
  const FloorFigure figure{70, kTeaLine, FloorFigure::Operation::Set, "12", ""};
  Send(1, figure);
  Send(1, figure);
  Set(2, kTeaLine, "abc");
  EXPECT_EQ(decided, (std::vector<std::pair<std::string, FigureState>>{{"تبلت 12", FigureState::Stored},
                                                                       {"d2 abc", FigureState::Refused}}));
}

TEST_F(FloorPauses, A_journal_that_is_cut_off_is_read_as_far_as_it_is_whole_and_continued_after_that) {
  Set(1, kTeaLine, "12");
  Set(1, kSugarLine, "13");
  Crash();
  journal_.synced.resize(journal_.synced.size() - 3);
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Set(1, kSugarLine, "14").state, FigureState::Stored);
  EXPECT_EQ(ReadJournal(journal_.synced).damaged, 0U);
  EXPECT_EQ(Journalled().size(), 3U) << "with the replay";
}

TEST_F(FloorPauses, A_file_that_is_no_journal_is_set_aside) {
  Crash();
  journal_.synced = "چيز ديگر\n";
  StartAndOpen();
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_EQ(journal_.aside.at(0), "چيز ديگر\n");
  EXPECT_NO_THROW(static_cast<void>(ReadJournal(journal_.synced)));
}

TEST_F(FloorPauses,
       Nothing_is_acknowledged_while_the_journal_cannot_be_written_and_the_desk_is_informed_once) {
  journal_.isFull = true;
  const std::vector<FloorFigure> add = {{1, kTeaLine, FloorFigure::Operation::Add, "5", {}}};
  static_cast<void>(session_->Enter(1, "d1", add));
  EXPECT_FALSE(session_->Commit());
  const auto again = session_->Enter(1, "d1", add);
  EXPECT_FALSE(session_->Commit());
  EXPECT_EQ(failures_, std::vector<std::string>{"ديسك پر است."});
  EXPECT_EQ(Count(kTeaLine, 1), "5") << "the grid has it once";
  journal_.isFull = false;
  EXPECT_EQ(session_->Enter(1, "d1", add), again);
  EXPECT_TRUE(session_->Commit());
  EXPECT_EQ(Journalled().size(), 1U);
  EXPECT_EQ(journal_.syncs, 1) << "all of a loop round at once";
}

TEST_F(FloorPauses, A_journal_that_could_not_be_begun_anew_after_a_save_is_so_later) {
  Set(1, kTeaLine, "12");
  journal_.isFull = true;
  SaveAndEdit();
  EXPECT_EQ(failures_.size(), 1U);
  EXPECT_EQ(Journalled().size(), 1U);
  journal_.isFull = false;
  EXPECT_TRUE(session_->Commit());
  EXPECT_EQ(Journalled().size(), 0U);
}

TEST_F(FloorPauses, Lines_of_one_barcode_keep_their_keys_over_sorting_saving_and_a_new_start) {
  Set(1, kTeaLine, "1");
  Set(1, {"G1", 2}, "2");
  Lines().UserSort({LineColumn::FirstCounting, RowOrder::Descending});
  SaveAndEdit();
  EXPECT_EQ(Count(kTeaLine, 1), "1");
  Set(1, {"G1", 2}, "22", "2");
  Crash();
  StartAndOpen();
  EXPECT_EQ(Count(kTeaLine, 1), "1");
  EXPECT_EQ(Count({"G1", 2}, 1), "2");
  session_->Replay();
  EXPECT_EQ(Count({"G1", 2}, 1), "22");
}

}  // namespace
}  // namespace koru::test
