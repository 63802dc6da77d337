#include <QSignalSpy>
#include <functional>

#include "tests/desktop/grid/KeyTable.h"
#include "tests/desktop/grid/ScanningGrid.h"

namespace koru::test {
namespace {

TEST_F(ScanningTest, A_scanned_good_is_found_and_Enter_moves_to_its_count) {
  Type("6262");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  EXPECT_FALSE(QToolTip::isVisible());
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(4, +First));
}

TEST_F(ScanningTest,
       A_scanned_barcode_that_no_line_has_moves_nothing_and_shows_a_hint_and_its_Enter_does_nothing) {
  Type("6269");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(HintShows("6269")) << QToolTip::text().toStdString();
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(HintShows("6269")) << "the scanner's Enter comes at once: nobody would have read it";
  Scan("6262");  // at once
  EXPECT_EQ(Current(), std::pair(4, +First));
  EXPECT_TRUE(HintIsHidden());
}

TEST_F(ScanningTest, The_hint_about_an_unknown_barcode_is_hidden_when_the_user_moves_on) {
  Scan("6269");
  Press(Qt::Key_Down);
  EXPECT_TRUE(HintIsHidden());
}

TEST_F(ScanningTest, A_scanned_barcode_that_is_longer_than_the_one_of_a_line_does_not_find_the_line) {
  Scan("77712345");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(HintShows("77712345"));
}

TEST_F(ScanningTest, An_unknown_barcode_is_no_count_either_however_late_its_Enter_comes) {
  Type("9");
  Pause();
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode)) << "a count that is typed next must not reach this line";
  Press(Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(2, +First));
}

TEST_F(ScanningTest, A_scanner_that_ends_with_Tab_leaves_an_unknown_barcode_s_line_alone_too) {
  Type("9");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(ScanningTest, After_a_pause_a_key_begins_a_new_search_after_the_current_line) {
  Type("62");
  EXPECT_EQ(Current(), std::pair(3, +Barcode));
  Pause();
  Type("62");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Pause();
  Type("62");
  EXPECT_EQ(Current(), std::pair(1, +Barcode)) << "the search continues at the top";
  Pause();
  Type("8");
  EXPECT_EQ(Current(), std::pair(1, +Barcode));
  EXPECT_TRUE(HintShows("8"));
}

TEST_F(ScanningTest, Moving_away_begins_a_new_search) {
  Type("9");
  Press(Qt::Key_Down);
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode));
}

TEST_F(ScanningTest, A_whole_barcode_wins_over_one_that_begins_with_it) {
  Type("6261");
  EXPECT_EQ(Current(), std::pair(3, +Barcode));
  Type("0");
  EXPECT_EQ(Current(), std::pair(1, +Barcode));
  Pause();
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode)) << "two equal digits are a barcode like any other";
  Pause();
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode));
}

TEST_F(ScanningTest, Digits_and_letters_of_any_keyboard_find_what_is_written_with_another) {
  Type(QStringLiteral("۶۲۶۲"));
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Pause();
  Type(QStringLiteral("٧٧٧"));
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  grid.SetCurrent(2, Name);
  Type(QStringLiteral("کت"));
  EXPECT_EQ(Current(), std::pair(5, +Name));
}

TEST_F(ScanningTest, Other_columns_are_searched_as_well_and_their_Enter_begins_no_round) {
  grid.SetCurrent(2, Name);
  Scan(QStringLiteral("روغن"));
  EXPECT_EQ(Current(), std::pair(3, +First));
  Scan("5");
  EXPECT_EQ(Current(), std::pair(3, +Second));
  grid.SetCurrent(2, Name);
  Scan(QStringLiteral("روز"));
  EXPECT_EQ(Current(), std::pair(2, +Name));
  EXPECT_TRUE(HintShows(QStringLiteral("روز")));
}

TEST_F(ScanningTest, The_beginning_of_a_barcode_shows_its_line_but_Enter_does_not_go_to_the_count) {
  const QSignalSpy refused(view, &GridView::refused);
  Scan("62");
  EXPECT_EQ(Current(), std::pair(3, +Barcode))
      << "a count that is typed here must not reach a line by chance";
  EXPECT_TRUE(HintShows("62"));
  EXPECT_EQ(refused.count(), 1);
}

TEST_F(ScanningTest, Counts_typed_after_an_unknown_barcode_reach_no_line) {
  Scan("6269");
  for (const char* const count : {"6", "7", "1", "62", "0"}) {
    Scan(count);
    EXPECT_EQ(Current().second, +Barcode) << count;
  }
  for (int row = 1; row < grid.Rows(); ++row) EXPECT_EQ(Cell(row, First), "") << row;
}

TEST_F(ScanningTest, Escape_and_blanks_search_for_nothing) {
  Press(Qt::Key_Escape);
  Type(" ");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(ScanningTest, In_a_list_an_unknown_text_opens_nothing) {
  int opened = 0;
  grid.DblClick.Always([&] { opened = grid.Row(); });
  grid.SetEditMask("0000000");
  Scan("6269");
  EXPECT_EQ(opened, 0);
  Scan("6262");
  EXPECT_EQ(opened, 4);
}

TEST_F(ScanningTest, Scans_and_counts_follow_each_other_without_any_other_key) {
  Scan("6262");
  Scan("12");
  EXPECT_EQ(Cell(4, First), "12");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Scan("777");
  Scan("5");
  EXPECT_EQ(Cell(2, First), "5");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Scan("777");  // the same good again
  EXPECT_EQ(Current(), std::pair(2, +First));
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode)) << "its count stays, the next scan may come";
}

TEST_F(ScanningTest, A_second_Enter_after_a_count_does_not_return_to_the_count) {
  Scan("6262");
  Scan("12");
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Scan("5");
  EXPECT_EQ(Cell(4, First), "12");
}

TEST_F(ScanningTest, A_slow_hand_counts_in_the_same_round) {
  Type("6262");
  Pause();
  Press(Qt::Key_Return);
  Type("1");
  Pause();
  Scan("2");
  EXPECT_EQ(Cell(4, First), "12");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, After_one_move_to_the_second_count_the_next_scans_move_there_too) {
  Scan("6262");
  Press(Qt::Key_Left);
  Scan("8");
  EXPECT_EQ(Cell(4, Second), "8");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Scan("777");
  EXPECT_EQ(Current(), std::pair(2, +Second));
  Type("9");
  Press(Qt::Key_Right);  // stores it and moves back to the first count
  EXPECT_EQ(Cell(2, Second), "9");
  Scan("7");
  EXPECT_EQ(Cell(2, First), "7");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Scan("6262");
  EXPECT_EQ(Current(), std::pair(4, +First));
}

TEST_F(ScanningTest, A_look_at_the_second_count_without_a_figure_does_not_send_scans_there) {
  Scan("6262");
  Press(Qt::Key_Left);
  Press(Qt::Key_Return);
  Scan("777");
  EXPECT_EQ(Current(), std::pair(2, +First));
}

TEST_F(ScanningTest, A_refused_count_stays_and_the_right_one_still_ends_at_the_barcode) {
  Scan("6262");
  Scan("-1");
  ASSERT_TRUE(view->IsTypedInto());
  Scan("3");
  EXPECT_EQ(Cell(4, First), "3");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, Any_other_way_out_of_the_scanned_line_gives_Enter_back) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"down and up",
       [] {
         Press(Qt::Key_Down);
         Press(Qt::Key_Up);
       }},
      {"to a cell that is not typed into",
       [] {
         Press(Qt::Key_Right);
         Press(Qt::Key_Left);
       }},
      {"Tab",
       [] {
         Press(Qt::Key_Tab);
         Press(Qt::Key_Backtab);
       }},
      {"mouse", [this] { Click(4, First); }},
      {"another field",
       [this] {
         QTest::mouseClick(other, Qt::LeftButton);
         view->setFocus();
       }},
      {"a sort",
       [this] {
         grid.Sort(Name, SortMode::GenericAscending);
         grid.Sort(0, SortMode::GenericAscending);
       }},
  };
  for (const auto& [name, leave] : ways) {
    grid.SetCurrent(2, Barcode);
    Scan("6262");
    ASSERT_EQ(Current().second, +First) << name;
    grid.Sort(0, SortMode::GenericAscending);
    grid.SetCurrent(2, Barcode);
    Scan("6262");
    ASSERT_EQ(Current(), std::pair(4, +First)) << name;
    leave();
    ASSERT_EQ(Current(), std::pair(4, +First)) << name;
    Press(Qt::Key_Return);
    EXPECT_EQ(Current(), std::pair(4, +Second)) << name;
  }
}

TEST_F(ScanningTest, Enter_on_a_barcode_that_was_not_scanned_begins_no_round) {
  Press(Qt::Key_Return);
  Scan("4");
  EXPECT_EQ(Cell(2, First), "4");
  EXPECT_EQ(Current(), std::pair(2, +Second));
}

TEST_F(ScanningTest, A_sort_after_a_scan_takes_the_scan_back) {
  Type("6262");
  grid.Sort(Barcode, SortMode::TextNoCaseAscending);
  ASSERT_EQ(Cell(5, Barcode), "6262");
  EXPECT_EQ(Current(), std::pair(5, +Barcode)) << "the current good stays the current one";
  Press(Qt::Key_Return);
  Scan("4");
  EXPECT_EQ(Current(), std::pair(5, +Second)) << "the rows have moved, so this is no round";
  EXPECT_EQ(Cell(5, First), "4");
}

TEST_F(ScanningTest, What_is_only_viewed_is_found_and_Enter_stays) {
  grid.SetLocked(true);
  Scan("6262");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, An_empty_line_that_is_removed_while_scanning_loses_nothing_of_the_barcode) {
  grid.SetTextMatrix(2, Barcode, "");
  grid.RowChange.Always([this] {
    if (Cell(grid.Row(), Barcode).empty()) grid.RemoveItem(grid.Row());
  });
  Scan("6262");
  EXPECT_EQ(grid.Rows(), 6);
  EXPECT_EQ(Cell(Current().first, Barcode), "6262");
  EXPECT_EQ(Current(), std::pair(3, +First));
}

TEST(ScanModeKeys, Every_key_in_every_state_of_a_scan_has_its_effect) {
  const std::vector<TableState> states = {{"Idle", [](ScanningGrid&) {}},
                                          {"Found", [](ScanningGrid&) { Type("6262"); }},
                                          {"NotFound", [](ScanningGrid&) { Type("6269"); }},
                                          {"Dismissed", [](ScanningGrid& grid) { grid.Scan("6269"); }},
                                          {"Figure", [](ScanningGrid& grid) { grid.Scan("6262"); }},
                                          {"Searching", [](ScanningGrid&) { Type("6"); }, true}};
  ExpectKeys(
      states,
      {
          {"Return", {"Idle 2,3", "Figure 4,3", "Dismissed 2,1", "Dismissed 2,1", "Ready 4,1", "Found 3,1"}},
          {"Enter", {"Idle 2,3", "Figure 4,3", "Dismissed 2,1", "Dismissed 2,1", "Ready 4,1", "Found 3,1"}},
          {"Tab", {"Idle 2,3", "Idle 4,3", "Dismissed 2,1", "Idle 2,3", "Idle 4,4", "Found 3,1"}},
          {"Backtab", {"Idle 1,6", "Idle 3,6", "Dismissed 2,1", "Idle 1,6", "Idle 3,6", "Found 3,1"}},
          {"Escape", {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3", "Found 3,1"}},
          {"Left", {"Idle 2,2", "Idle 4,2", "Idle 2,2", "Idle 2,2", "Figure 4,4", "Found 3,1"}},
          {"Right", {"Idle 2,0", "Idle 4,0", "Idle 2,0", "Idle 2,0", "Idle 4,2", "Found 3,1"}},
          {"Up", {"Idle 1,1", "Idle 3,1", "Idle 1,1", "Idle 1,1", "Idle 3,3", "Found 3,1"}},
          {"Down", {"Idle 3,1", "Idle 5,1", "Idle 3,1", "Idle 3,1", "Idle 5,3", "Found 3,1"}},
          {"Home", {"Idle 2,0", "Idle 4,0", "Idle 2,0", "Idle 2,0", "Idle 4,0", "Found 3,1"}},
          {"End", {"Idle 2,6", "Idle 4,6", "Idle 2,6", "Idle 2,6", "Idle 4,6", "Found 3,1"}},
          {"Ctrl+Home", {"Idle 1,0", "Idle 1,0", "Idle 1,0", "Idle 1,0", "Idle 1,0", "Found 3,1"}},
          {"Ctrl+End", {"Idle 6,6", "Idle 6,6", "Idle 6,6", "Idle 6,6", "Idle 6,6", "Found 3,1"}},
          {"PageUp", {"Idle 1,1", "Idle 1,1", "Idle 1,1", "Idle 1,1", "Idle 1,3", "Found 3,1"}},
          {"PageDown", {"Idle 6,1", "Idle 6,1", "Idle 6,1", "Idle 6,1", "Idle 6,3", "Found 3,1"}},
          {"Delete",
           {"Idle 2,1 deletes", "Idle 4,1 deletes", "Idle 2,1 deletes", "Idle 2,1 deletes", "Figure 4,3",
            "Found 2,1 deletes"}},
          {"Ctrl+Delete",
           {"Idle 2,1 deletes", "Idle 4,1 deletes", "Idle 2,1 deletes", "Idle 2,1 deletes",
            "Idle 4,3 deletes", "Found 2,1 deletes"}},
          {"Backspace",
           {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3", "Found 3,1"}},
          {"Insert", {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3", "Found 3,1"}},
          {"F2",
           {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure Opened 4,3 ''@0", "Found 3,1"}},
          {"F5", {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3", "Found 3,1"}},
          {"x", {"NotFound 2,1", "NotFound 2,1", "NotFound 2,1", "NotFound 2,1", "Figure 4,3", "Idle 3,1"}},
          {"6",
           {"Found 3,1", "NotFound 2,1", "NotFound 2,1", "Found 3,1", "Figure Typed 4,3 '6'@1", "Idle 3,1"}},
          {"Space", {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Idle 2,1", "Figure 4,3", "Found 3,1"}},
          {"Ctrl+A", {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3", "Found 3,1"}},
          {"Ctrl+C",
           {"Idle 2,1 copies 777", "Found 4,1 copies 6262", "NotFound 2,1 copies 777",
            "Dismissed 2,1 copies 777", "Figure 4,3 copies ", "Found 3,1 copies 6261"}},
          {"Ctrl+V",
           {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Figure 4,3 (4,3)=3", "Found 3,1"}},
          {"Ctrl+V lines",
           {"Idle 2,1", "Found 4,1", "NotFound 2,1", "Dismissed 2,1", "Idle 4,3 (4,3)=3 (5,3)=4",
            "Found 3,1"}},
          {"Ctrl+Tab",
           {"Idle 2,1 leaves", "Idle 4,1 leaves", "Idle 2,1 leaves", "Idle 2,1 leaves", "Idle 4,3 leaves",
            "Idle 3,1 leaves"}},
          {"Ctrl+Shift+Tab",
           {"Idle 2,1 leaves", "Idle 4,1 leaves", "Idle 2,1 leaves", "Idle 2,1 leaves", "Idle 4,3 leaves",
            "Idle 3,1 leaves"}},
      });
}

}  // namespace
}  // namespace koru::test
