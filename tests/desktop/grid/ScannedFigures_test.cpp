#include <QSignalSpy>

#include "tests/desktop/grid/ScannerKeys.h"
#include "tests/desktop/grid/ScanningGrid.h"

namespace koru::test {
namespace {

/// A grid whose goods have barcodes as on packages, with the first count of the second line as current cell.
class ScannedFiguresTest : public ScanningTest {
 protected:
  ScannedFiguresTest() {
    grid.SetTextMatrix(4, Barcode, "6261234567890");
    grid.SetTextMatrix(5, Barcode, "12345670");
    grid.SetTextMatrix(6, Barcode, "AB-1234");
    grid.SetTextMatrix(2, First, "8");
    view->SetFigureColumns(First, Second);
    grid.SetCurrent(2, First);
  }
  [[nodiscard]] std::string Figures() const {
    std::string figures;
    for (int row = 1; row < grid.Rows(); ++row) {
      for (const int col : {+First, +Second, +Rate}) {
        if (Cell(row, col).empty()) continue;
        figures += std::to_string(row) + "," + std::to_string(col) + "=" + Cell(row, col) + " ";
      }
    }
    return figures;
  }

  TimedKeys keys;
  QSignalSpy refused{view, &GridView::refused};
};

TEST_F(ScannedFiguresTest, A_barcode_scanned_into_a_figure_leads_to_its_line) {
  keys.Scan("6261234567890");
  EXPECT_EQ(Current(), std::pair(4, +First));
  EXPECT_EQ(Figures(), "2,3=8 ");
  EXPECT_EQ(refused.count(), 0);
  keys.Enter("12");
  EXPECT_EQ(Figures(), "2,3=8 4,3=12 ");
  EXPECT_EQ(Current(), std::pair(4, +Barcode)) << "the round of scans and counts continues";
}

TEST_F(ScannedFiguresTest, A_barcode_without_a_line_changes_no_figure_and_is_heard_and_explained) {
  keys.Scan("6269999999990");
  EXPECT_EQ(Current(), std::pair(2, +Barcode)) << "a count that is typed now must not reach the line";
  EXPECT_EQ(Figures(), "2,3=8 ");
  EXPECT_EQ(refused.count(), 1);
  EXPECT_TRUE(HintShows("6269999999990"));
  keys.Enter("5");
  EXPECT_EQ(Figures(), "2,3=8 ");
}

TEST_F(ScannedFiguresTest, A_barcode_that_begins_like_the_one_of_a_line_is_another_barcode) {
  keys.Scan("626123456");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_EQ(Figures(), "2,3=8 ");
  EXPECT_TRUE(HintShows("626123456"));
}

TEST_F(ScannedFiguresTest, A_count_without_an_Enter_is_kept_when_the_next_good_is_scanned) {
  keys.Type("15");
  keys.Scan("12345670");
  EXPECT_EQ(Figures(), "2,3=15 ");
  EXPECT_EQ(Current(), std::pair(5, +First));
  keys.Type("7");
  keys.Scan("6269999999990");
  EXPECT_EQ(Figures(), "2,3=15 5,3=7 ");
  EXPECT_EQ(Current(), std::pair(5, +Barcode));
}

TEST_F(ScannedFiguresTest, A_barcode_without_an_Enter_is_no_count_either) {
  keys.ScanWithoutEnd("6261234567890");
  keys.Pause();
  keys.Enter("12");
  EXPECT_EQ(Figures(), "2,3=8 4,3=12 ");
}

TEST_F(ScannedFiguresTest, A_count_may_follow_a_barcode_without_an_Enter_in_the_barcode_column_too) {
  grid.SetCurrent(2, Barcode);
  keys.ScanWithoutEnd("6261234567890");
  keys.Pause();
  keys.Enter("12");
  EXPECT_EQ(Figures(), "2,3=8 4,3=12 ");
  keys.ScanWithoutEnd("6269999999990");
  keys.Pause();
  keys.Enter("5");
  EXPECT_EQ(Figures(), "2,3=8 4,3=12 ");
  EXPECT_EQ(Current().second, +Barcode);
}

TEST_F(ScannedFiguresTest, An_Enter_that_follows_a_barcode_late_belongs_to_the_barcode) {
  keys.ScanWithoutEnd("6261234567890");
  keys.Pause();
  keys.Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(4, +First));
  EXPECT_EQ(Figures(), "2,3=8 ");
}

TEST_F(ScannedFiguresTest, A_barcode_is_not_stored_by_any_other_key_or_click) {
  for (const int key : {int(Qt::Key_Tab), int(Qt::Key_Up), int(Qt::Key_Down), int(Qt::Key_Left),
                        int(Qt::Key_Right), int(Qt::Key_Backspace), int(Qt::Key_Escape)}) {
    grid.SetCurrent(2, First);
    view->setFocus();
    keys.ScanWithoutEnd("6269999999990");
    keys.Pause();
    keys.Press(key);
    EXPECT_EQ(Figures(), "2,3=8 ") << key;
    EXPECT_FALSE(view->IsTypedInto()) << key;
  }
  grid.SetCurrent(2, First);
  view->setFocus();
  keys.ScanWithoutEnd("6269999999990");
  refused.clear();
  Click(1, Second);
  EXPECT_EQ(Figures(), "2,3=8 ");
  EXPECT_EQ(refused.count(), 1);
  grid.SetCurrent(2, First);
  keys.ScanWithoutEnd("6261234567890");
  EXPECT_TRUE(view->FinishEdit());
  EXPECT_EQ(Figures(), "2,3=8 ");
}

TEST_F(ScannedFiguresTest, A_scanner_that_ends_with_Tab_scans_as_well) {
  keys.Scan("6261234567890", Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(4, +First));
  grid.SetCurrent(2, Barcode);
  keys.Scan("12345670", Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(5, +First));
  EXPECT_EQ(Figures(), "2,3=8 ");
}

TEST_F(ScannedFiguresTest, A_barcode_with_letters_is_scanned_too_and_leaves_no_digits_in_the_figure) {
  keys.Scan("AB-1234");
  EXPECT_EQ(Current(), std::pair(6, +First));
  keys.Scan("AB-99");
  EXPECT_EQ(Current(), std::pair(6, +Barcode));
  EXPECT_TRUE(HintShows("AB-99"));
  EXPECT_EQ(Figures(), "2,3=8 ");
}

TEST_F(ScannedFiguresTest, A_barcode_scanned_into_another_column_leads_to_its_line) {
  for (const int col : {0, +Name, +Stock}) {
    grid.SetCurrent(2, col);
    keys.Scan("6261234567890");
    EXPECT_EQ(Current(), std::pair(4, +First)) << col;
  }
}

TEST_F(ScannedFiguresTest, A_key_pressed_before_the_scan_is_no_part_of_the_barcode) {
  grid.SetCurrent(2, Barcode);
  keys.Type("9");
  keys.Scan("6261234567890");
  EXPECT_EQ(Current(), std::pair(4, +First));
}

TEST_F(ScannedFiguresTest, A_figure_typed_by_hand_is_a_figure_however_long_it_is) {
  keys.Enter("6261234567890");
  EXPECT_EQ(Cell(2, First), "6261234567890");
  grid.SetCurrent(3, First);
  keys.Hold("1", 10);
  keys.Press(Qt::Key_Return);
  EXPECT_EQ(Cell(3, First), "1111111111") << "a key that is held down is no scanner";
}

TEST_F(ScannedFiguresTest, A_weight_that_a_scale_sends_is_a_figure) {
  keys.Scan("12.345");
  EXPECT_EQ(Cell(2, First), "12.345");
}

TEST_F(ScannedFiguresTest, A_refused_figure_keeps_its_cell_and_the_scan_has_no_effect) {
  keys.Type("-1");
  keys.Scan("6261234567890");
  EXPECT_TRUE(view->IsTypedInto());
  EXPECT_EQ(Current(), std::pair(2, +First));
  EXPECT_EQ(Figures(), "2,3=8 ");
  keys.Enter("5");
  EXPECT_EQ(Figures(), "2,3=5 ");
}

TEST_F(ScannedFiguresTest, A_figure_that_was_refused_at_a_scan_stays_while_others_come_from_elsewhere) {
  keys.Type("-1");
  keys.Scan("6261234567890");
  ASSERT_TRUE(view->IsTypedInto());
  EXPECT_TRUE(grid.UserEditElsewhere(2, Second, "4"));
  EXPECT_EQ(view->findChild<QLineEdit*>("cellEditor")->text(), "-1");
}

TEST_F(ScannedFiguresTest, A_scan_never_leads_to_the_rate) {
  grid.SetCurrent(2, Rate);
  keys.Type("3");
  keys.Scan("6261234567890");
  EXPECT_EQ(Current(), std::pair(4, +First));
  EXPECT_EQ(Cell(2, Rate), "3");
}

TEST_F(ScannedFiguresTest, What_is_only_viewed_is_found_from_any_cell) {
  grid.SetLocked(true);
  keys.Scan("6261234567890");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  EXPECT_EQ(Figures(), "2,3=8 ");
}

}  // namespace
}  // namespace koru::test
