// Figures from the floor after a crash whose draft is restored: the lines on the form are not those of the
// database, and figures of several lines of a barcode are never entered into each other's.

#include "adapters/system/DraftFiles.h"
#include "draft/DraftKeeper.h"
#include "tests/floor/FloorWorld.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

class FloorDrafts : public FloorWorld {
 protected:
  FloorDrafts() {
    session_.reset();
    journal_.Remove();
    drafts_ = &store_;
    StartAndOpen();
  }
  void WriteDraft() {
    for (int tick = 0; tick < DraftKeeper::kMaxTicksUnwritten; ++tick) Desk().Timer1.Fire();
  }
  void Restore() {
    StartProgram();
    ASSERT_TRUE(program_->FindDraft());
    ASSERT_TRUE(program_->RestoreDraft());
    Open();
  }
  void CrashAndRestore() {
    WriteDraft();
    Crash();
    Restore();
  }
  /// The keys of the lines of a barcode, as devices see them.
  [[nodiscard]] std::vector<LineKey> KeysOf(const std::string& barcode) {
    std::vector<LineKey> keys;
    for (const FloorLine& line : session_->Lines(1))
      if (line.key.barcode == barcode) keys.push_back(line.key);
    return keys;
  }
  [[nodiscard]] std::vector<std::string> FiguresOf(const std::string& barcode, int count) {
    std::vector<std::string> figures;
    for (const LineKey& key : KeysOf(barcode)) figures.push_back(Count(key, count));
    return figures;
  }

  TemporaryFolder folder_;
  DraftFiles store_{folder_.Path() / "drafts"};
};

TEST_F(FloorDrafts, Of_sorted_lines_have_a_figure_in_one_line_of_its_barcode) {
  Type(1, LineColumn::ThirdCounting, "100");
  Type(4, LineColumn::ThirdCounting, "400");
  Lines().UserSort({LineColumn::ThirdCounting, RowOrder::Descending});
  Set(1, kTeaLine, "5");
  CrashAndRestore();
  const ReplayedFigures replayed = session_->Replay();
  EXPECT_EQ(replayed.entered, 0U);
  ASSERT_EQ(replayed.gone.size(), 1U);
  EXPECT_EQ(replayed.gone[0].text, "5");
  EXPECT_EQ(FiguresOf("G1", 1), (std::vector<std::string>{"5", ""}));
  EXPECT_EQ(FiguresOf("G1", 3), (std::vector<std::string>{"100", "400"}));
}

TEST_F(FloorDrafts, Without_a_deleted_line_take_no_figure_of_it_into_another_one) {
  Set(1, kOtherTeaLine, "8");
  Delete(1);
  CrashAndRestore();
  EXPECT_EQ(session_->Replay().gone.size(), 1U) << "nobody knows which line it was for";
  EXPECT_EQ(Add(1, kTeaLine, "3").state, FigureState::Gone);
  EXPECT_EQ(Add(1, kOtherTeaLine, "2").state, FigureState::Gone);
  ASSERT_EQ(KeysOf("G1").size(), 1U);
  EXPECT_EQ(FiguresOf("G1", 1), std::vector<std::string>{"8"});
  EXPECT_EQ(Add(1, KeysOf("G1")[0], "2").state, FigureState::Stored);
  EXPECT_EQ(FiguresOf("G1", 1), std::vector<std::string>{"10"});
}

TEST_F(FloorDrafts, Keep_the_key_of_the_only_line_of_a_barcode) {
  WriteDraft();
  Type(2, LineColumn::SecondCounting, "4");
  WriteDraft();
  Set(1, kSugarLine, "7");
  Crash();
  Restore();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kSugarLine, 1), "7");
  EXPECT_EQ(Add(1, kSugarLine, "1").state, FigureState::Stored);
}

TEST_F(FloorDrafts, With_a_line_of_a_barcode_that_had_figures_of_several_do_not_keep_its_key) {
  std::vector<std::string> texts(kLineColumns);
  texts[LineColumn::Barcode] = "G2";
  Lines().AddRow(texts);
  Set(1, {"G2", 2}, "7");
  Delete(2);
  CrashAndRestore();
  EXPECT_EQ(session_->Replay().entered, 0U);
  EXPECT_EQ(Add(1, kSugarLine, "1").state, FigureState::Gone);
}

TEST_F(FloorDrafts, A_line_that_is_added_afterwards_takes_no_figure_of_the_earlier_ones) {
  Set(1, kTeaLine, "5");
  Delete(4);
  CrashAndRestore();
  static_cast<void>(session_->Replay());
  std::vector<std::string> texts(kLineColumns);
  texts[LineColumn::Barcode] = "G1";
  Lines().AddRow(texts);
  for (const int ordinal : {1, 2, 3}) {
    EXPECT_EQ(Add(1, {"G1", ordinal}, "1").state, FigureState::Gone);
  }
  EXPECT_EQ(KeysOf("G1").size(), 2U);
}

TEST_F(FloorDrafts, Keep_their_keys_when_they_are_saved_and_opened_again) {
  Set(1, kTeaLine, "5");
  CrashAndRestore();
  static_cast<void>(session_->Replay());
  const std::vector<LineKey> keys = KeysOf("G1");
  EXPECT_NE(keys[0], kTeaLine);
  SaveAndEdit();
  EXPECT_EQ(KeysOf("G1"), keys);
  Set(1, keys[1], "6");
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(KeysOf("G1"), keys);
  EXPECT_EQ(FiguresOf("G1", 1), (std::vector<std::string>{"5", "6"}));
}

TEST_F(FloorDrafts, That_are_given_up_leave_the_figures_of_before_to_their_lines) {
  Set(1, kOtherTeaLine, "8");
  CrashAndRestore();
  static_cast<void>(session_->Replay());
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ViewEditAndOpen();
  ASSERT_TRUE(session_->TakeBackSetAside());
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(kOtherTeaLine, 1), "8");
  EXPECT_EQ(Count(kTeaLine, 1), "");
}

TEST_F(FloorDrafts, And_a_session_that_begins_after_the_desk_has_deleted_a_line_know_no_line_of_its_barcode) {
  session_.reset();
  journal_.Remove();
  Delete(1);
  Open();
  Set(1, kTeaLine, "8");  // the second line of before
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().gone.size(), 1U);
  EXPECT_EQ(FiguresOf("G1", 1), (std::vector<std::string>{"", ""}));
}

TEST_F(FloorDrafts, And_lines_that_another_station_has_added_are_not_taken_for_earlier_ones) {
  Set(1, kTeaLine, "8");
  Crash();
  database.Execute(
      "insert into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue) values (20,'G1',0,1,10,3)");
  StartAndOpen();
  EXPECT_EQ(session_->Replay().gone.size(), 1U);
  EXPECT_EQ(FiguresOf("G1", 1), (std::vector<std::string>{"", "", ""}));
  const std::vector<LineKey> keys = KeysOf("G1");
  Set(1, keys[2], "9");
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(FiguresOf("G1", 1), (std::vector<std::string>{"", "", "9"}));
}

TEST_F(FloorDrafts, Lines_of_which_another_station_has_removed_one_are_known_again_after_a_crash) {
  Set(1, kSugarLine, "1");
  Save();
  database.Execute("delete from tblInventoryCountingDetail where CountingID=20 and RowNumber=1");
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  ASSERT_EQ(KeysOf("G1").size(), 1U);
  const LineKey key = KeysOf("G1")[0];
  EXPECT_EQ(Add(1, kTeaLine, "3").state, FigureState::Gone);
  ASSERT_EQ(Set(1, key, "9").state, FigureState::Stored);
  Crash();
  StartAndOpen();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count(key, 1), "9");
}

TEST_F(FloorDrafts, Keep_the_part_of_a_figure_that_they_have_over_a_cancel) {
  const FloorFigure three{7, kSugarLine, FloorFigure::Operation::Add, "3", {}};
  Send(1, three);
  WriteDraft();
  Add(1, kSugarLine, "2");
  Crash();
  Restore();
  ASSERT_EQ(session_->Left().Cells().size(), 1U);
  CancelAndEdit();
  EXPECT_EQ(Send(1, three).state, FigureState::Stored);
  EXPECT_EQ(Count(kSugarLine, 1), "3");
}

TEST_F(FloorDrafts, That_the_desk_corrects_before_it_forgoes_figures_are_offered_after_a_crash_without_them) {
  Add(1, kSugarLine, "5");
  WriteDraft();
  Add(1, {"G3", 1}, "3");
  Crash();
  Restore();
  ASSERT_EQ(session_->Left().Cells().size(), 1U);
  Type(2, LineColumn::FirstCounting, "6");
  ASSERT_TRUE(session_->ForgoLeft());
  EXPECT_TRUE(session_->HasUnsaved()) << "Cancel asks";
  Crash();
  StartAndOpen();
  ASSERT_EQ(session_->Left().Cells().size(), 1U);
  EXPECT_EQ(session_->Left().Cells()[0].line, kSugarLine);
}

}  // namespace
}  // namespace koru::test
