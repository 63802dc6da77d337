#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolTip>

#include "desktop/toolkit/QtText.h"
#include "tests/desktop/grid/GridViewTest.h"
#include "tests/desktop/grid/KeyTable.h"

namespace koru::test {
namespace {

class CellEditingTest : public GridViewTest {};

TEST_F(CellEditingTest, A_refused_text_stays_selected_in_its_cell_and_Escape_gives_the_old_one_back) {
  Start();
  grid.SetTextMatrix(1, 2, "8");
  Type("-1");
  Press(Qt::Key_Return);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->selectedText(), "-1");
  EXPECT_TRUE(Editor()->hasFocus());
  EXPECT_EQ(Cell(1, 2), "8");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Cell(1, 2), "8");
  EXPECT_EQ(Current(), std::pair(1, 2));
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(CellEditingTest, A_refused_text_is_lost_by_no_key_that_moves) {
  constexpr Qt::Key kMoving[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,
                                 Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,
                                 Qt::Key_Return, Qt::Key_Tab,      Qt::Key_Backtab};
  constexpr Qt::KeyboardModifier kHeld[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                            Qt::AltModifier};
  Start();
  grid.SetCurrent(2, 2);
  for (const bool opened : {false, true}) {
    if (opened) Press(Qt::Key_F2);
    Type("-1");
    for (const Qt::Key key : kMoving) {
      for (const Qt::KeyboardModifier held : kHeld) {
        Press(key, held);
        QApplication::processEvents();
        ASSERT_NE(Editor(), nullptr) << key << " with " << held;
        EXPECT_EQ(Editor()->text(), "-1") << key << " with " << held;
        EXPECT_TRUE(Editor()->hasFocus()) << key << " with " << held;
        EXPECT_EQ(Current(), std::pair(2, 2)) << key << " with " << held;
      }
    }
    Press(Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(CellEditingTest, Who_presses_a_command_after_a_refused_text_is_brought_back_to_it_and_nothing_runs) {
  Button command(form, "cmdTmpSave");
  int clicks = 0;
  command.Click.Always([&] { ++clicks; });
  binding.Bind(command, *other);
  Start();
  int refusals = 0;
  grid.ValidateEdit.Always([&] { refusals += grid.EditText() == "-1" ? 1 : 0; });
  Type("-1");
  QTest::mouseClick(other, Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_NE(Editor(), nullptr);
  EXPECT_TRUE(Editor()->hasFocus());
  EXPECT_EQ(refusals, 1);
  EXPECT_EQ(clicks, 0);
  Press(Qt::Key_Escape);
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

TEST_F(CellEditingTest,
       A_command_that_discards_everything_is_not_blocked_by_a_refused_figure_and_closes_its_editor) {
  Button cancel(form, "cmdCancel");
  int clicks = 0;
  cancel.Click.Always([&] {
    ++clicks;
    grid.SetLocked(true);
  });
  binding.Bind(cancel, *other, BlockedBy::Nothing);
  Start();
  Type("-1");
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(1, 2), "");
}

TEST_F(CellEditingTest, A_click_on_another_cell_stores_what_was_typed_and_stays_where_it_was_refused) {
  Start();
  const auto click = [this](int row, int col) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row, col)).center());
    QApplication::processEvents();
  };
  Type("4");
  click(1, 2);
  EXPECT_EQ(Cell(1, 2), "4");
  EXPECT_EQ(Current(), std::pair(2, 2));
  Type("-1");
  click(2, 2);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->selectedText(), "-1");
  EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(CellEditingTest, A_sort_in_the_middle_of_typing_puts_the_text_into_its_own_row_first) {
  grid.HeaderClick.Always([this](int col) { grid.Sort(col, SortMode::GenericAscending); });
  Start();
  grid.SetCurrent(2, 2);
  Type("4");
  const int x = view->columnViewportPosition(1) + view->columnWidth(1) / 2;
  QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, {x, 10});
  for (int row = 1; row < grid.Rows(); ++row) EXPECT_EQ(Cell(row, 2), Cell(row, 1) == "مهره" ? "4" : "");
}

TEST_F(CellEditingTest, Moving_to_another_field_stores_what_was_typed) {
  Start();
  Type("4");
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_EQ(Cell(1, 2), "4");
  EXPECT_TRUE(other->hasFocus());
}

TEST_F(CellEditingTest, F2_edits_the_existing_text) {
  Start();
  grid.SetTextMatrix(1, 2, "15");
  Press(Qt::Key_F2);
  Press(Qt::Key_End);
  Type("0");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "150");
}

TEST_F(CellEditingTest, Digits_of_Persian_and_Arabic_keyboards_arrive_as_Latin_ones) {
  Start();
  Type(QStringLiteral("۱۲٫۵"));
  EXPECT_EQ(Editor()->text(), "12.5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "12.5");
  Type(QStringLiteral("٣٤"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), "34");
}

TEST_F(CellEditingTest, A_slash_is_a_decimal_mark_in_a_number_cell) {
  Start();
  Type("12/5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "12.5");
  Type(QStringLiteral("۱۲/۵"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), "12.5");
}

TEST_F(CellEditingTest, A_number_cell_takes_no_letter_and_keeps_its_figure) {
  Start();
  const QSignalSpy refused(view, &GridView::refused);
  grid.SetTextMatrix(1, 2, "8");
  for (const char* const letters : {"x", "الف", " ", "e", "%"}) {
    Type(QString::fromUtf8(letters));
    EXPECT_EQ(Editor(), nullptr) << letters;
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("عدد"))) << letters;
    Press(Qt::Key_F2);
    Type(QString::fromUtf8(letters));
    ASSERT_NE(Editor(), nullptr) << letters;
    EXPECT_EQ(Editor()->text(), "8") << letters;
    Press(Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  EXPECT_EQ(Cell(1, 2), "8");
  EXPECT_EQ(refused.count(), 2 * 7) << "each refused key is heard";
}

TEST_F(CellEditingTest, A_text_that_is_no_number_stays_in_its_cell_and_is_explained) {
  Start();
  grid.SetTextMatrix(1, 2, "8");
  for (const char* const text : {"12,5", "-", ".", "1404/01/15", "1.2.3"}) {
    Type(QString::fromLatin1(text));
    Press(Qt::Key_Return);
    ASSERT_NE(Editor(), nullptr) << text;
    EXPECT_EQ(Editor()->selectedText(), text);
    EXPECT_TRUE(QToolTip::text().contains(QString::fromLatin1(text))) << QToolTip::text().toStdString();
    EXPECT_EQ(Cell(1, 2), "8") << text;
    Press(Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(CellEditingTest, A_pasted_text_without_a_number_does_not_replace_the_figure) {
  Start();
  grid.SetTextMatrix(1, 2, "8");
  QApplication::clipboard()->setText(QStringLiteral("پنج عدد"));
  const QSignalSpy refused(view, &GridView::refused);
  Press(Qt::Key_F2);
  Press(Qt::Key_V, Qt::ControlModifier);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), "8");
  EXPECT_EQ(refused.count(), 1);
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "8");
}

TEST_F(CellEditingTest, Enter_on_the_last_cell_stores_it_and_stays) {
  Start();
  grid.SetCurrent(3, 3);
  Type("9");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(3, 3), "9");
  EXPECT_EQ(Current(), std::pair(3, 3));
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(CellEditingTest, Enter_fills_the_cells_one_after_the_other_and_continues_in_the_next_row) {
  Start();
  Type("12");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "12");
  EXPECT_EQ(Current(), std::pair(1, 3));
  Type("5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), "5");
  EXPECT_EQ(Current(), std::pair(2, 2));
  Type("7");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Cell(2, 2), "7");
  EXPECT_EQ(Current(), std::pair(2, 3));
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(CellEditingTest, Ctrl_Tab_leaves_the_grid_also_out_of_a_cell_that_is_being_typed) {
  Button cmd(form, "cmd");
  binding.Bind(cmd, *other);
  Start();
  Type("4");
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2), "4");
  EXPECT_TRUE(other->hasFocus());
  EXPECT_EQ(Current(), std::pair(1, 2));
}

TEST_F(CellEditingTest, A_cell_that_is_not_for_typing_takes_no_text) {
  Start();
  grid.SetCurrent(1, 1);
  Type("x");
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(1, 1), "پيچ");
}

TEST(CellEditingKeys, Every_key_in_every_state_of_an_edit_has_its_effect) {
  const std::vector<TableState> states = {
      {"Closed", [](ScanningGrid& grid) { grid.grid.SetCurrent(2, ScanningGrid::First); }},
      {"Typed",
       [](ScanningGrid& grid) {
         grid.grid.SetCurrent(2, ScanningGrid::First);
         Type("12");
       }},
      {"Opened",
       [](ScanningGrid& grid) {
         grid.grid.SetTextMatrix(2, ScanningGrid::First, "12");
         grid.grid.SetCurrent(2, ScanningGrid::First);
         Press(Qt::Key_F2);
       }},
      {"Typed, and refused", [](ScanningGrid& grid) {
         grid.grid.SetCurrent(2, ScanningGrid::First);
         Type("-1");
         Press(Qt::Key_Return);
       }}};
  ExpectKeys(
      states,
      {
          {"Return", {"Idle 2,4", "Idle 2,4 (2,3)=12", "Idle 2,4", "Idle Typed 2,3 '-1'[-1]"}},
          {"Enter", {"Idle 2,4", "Idle 2,4 (2,3)=12", "Idle 2,4", "Idle Typed 2,3 '-1'[-1]"}},
          {"Tab", {"Idle 2,4", "Idle 2,4 (2,3)=12", "Idle 2,4", "Idle Typed 2,3 '-1'[-1]"}},
          {"Backtab", {"Idle 1,6", "Idle 1,6 (2,3)=12", "Idle 1,6", "Idle Typed 2,3 '-1'[-1]"}},
          {"Escape", {"Idle 2,3", "Idle 2,3", "Idle 2,3", "Idle 2,3"}},
          {"Left", {"Idle 2,4", "Idle 2,4 (2,3)=12", "Idle Opened 2,3 '12'@1", "Idle Typed 2,3 '-1'[-1]"}},
          {"Right", {"Idle 2,2", "Idle 2,2 (2,3)=12", "Idle Opened 2,3 '12'@2", "Idle Typed 2,3 '-1'[-1]"}},
          {"Up", {"Idle 1,3", "Idle 1,3 (2,3)=12", "Idle 1,3", "Idle Typed 2,3 '-1'[-1]"}},
          {"Down", {"Idle 3,3", "Idle 3,3 (2,3)=12", "Idle 3,3", "Idle Typed 2,3 '-1'[-1]"}},
          {"Home", {"Idle 2,0", "Idle Typed 2,3 '12'@0", "Idle Opened 2,3 '12'@0", "Idle Typed 2,3 '-1'@0"}},
          {"End", {"Idle 2,6", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'@2", "Idle Typed 2,3 '-1'@2"}},
          {"Ctrl+Home", {"Idle 1,0", "Idle 1,0 (2,3)=12", "Idle 1,0", "Idle Typed 2,3 '-1'[-1]"}},
          {"Ctrl+End", {"Idle 6,6", "Idle 6,6 (2,3)=12", "Idle 6,6", "Idle Typed 2,3 '-1'[-1]"}},
          {"PageUp", {"Idle 1,3", "Idle 1,3 (2,3)=12", "Idle 1,3", "Idle Typed 2,3 '-1'[-1]"}},
          {"PageDown", {"Idle 6,3", "Idle 6,3 (2,3)=12", "Idle 6,3", "Idle Typed 2,3 '-1'[-1]"}},
          {"Delete", {"Idle 2,3", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 ''@0", "Idle Typed 2,3 ''@0"}},
          {"Ctrl+Delete",
           {"Idle 2,3 deletes", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 ''@0", "Idle Typed 2,3 ''@0"}},
          {"Backspace", {"Idle 2,3", "Idle Typed 2,3 '1'@1", "Idle Opened 2,3 ''@0", "Idle Typed 2,3 ''@0"}},
          {"Insert",
           {"Idle 2,3", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12]", "Idle Typed 2,3 '-1'[-1]"}},
          {"F2",
           {"Idle Opened 2,3 ''@0", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12]",
            "Idle Typed 2,3 '-1'[-1]"}},
          {"F5",
           {"Idle 2,3", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12]", "Idle Typed 2,3 '-1'[-1]"}},
          {"x", {"Idle 2,3", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12]", "Idle Typed 2,3 '-1'[-1]"}},
          {"6",
           {"Idle Typed 2,3 '6'@1", "Idle Typed 2,3 '126'@3", "Idle Opened 2,3 '6'@1",
            "Idle Typed 2,3 '6'@1"}},
          {"Space",
           {"Idle 2,3", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12]", "Idle Typed 2,3 '-1'[-1]"}},
          {"Ctrl+A",
           {"Idle 2,3", "Idle Typed 2,3 '12'[12]", "Idle Opened 2,3 '12'[12]", "Idle Typed 2,3 '-1'[-1]"}},
          {"Ctrl+C",
           {"Idle 2,3 copies ", "Idle Typed 2,3 '12'@2", "Idle Opened 2,3 '12'[12] copies 12",
            "Idle Typed 2,3 '-1'[-1] copies -1"}},
          {"Ctrl+V",
           {"Idle 2,3 (2,3)=3", "Idle Typed 2,3 '123'@3", "Idle Opened 2,3 '3'@1", "Idle Typed 2,3 '3'@1"}},
          {"Ctrl+V lines",
           {"Idle 2,3 (2,3)=3 (3,3)=4", "Idle 2,3 (2,3)=3 (3,3)=4", "Idle 2,3 (2,3)=3 (3,3)=4",
            "Idle 2,3 (2,3)=3 (3,3)=4"}},
          {"Ctrl+Tab",
           {"Idle 2,3 leaves", "Idle 2,3 (2,3)=12 leaves", "Idle 2,3 leaves", "Idle Typed 2,3 '-1'[-1]"}},
          {"Ctrl+Shift+Tab",
           {"Idle 2,3 leaves", "Idle 2,3 (2,3)=12 leaves", "Idle 2,3 leaves", "Idle Typed 2,3 '-1'[-1]"}},
      });
}

TEST(CellEditingKeys, Every_key_in_every_state_of_an_edit_has_its_effect_on_the_scan_as_well) {
  const std::vector<TableState> states = {{"Figure, typed",
                                           [](ScanningGrid& grid) {
                                             grid.Scan("6262");
                                             Type("12");
                                           }},
                                          {"Figure, opened",
                                           [](ScanningGrid& grid) {
                                             grid.grid.SetTextMatrix(4, ScanningGrid::First, "12");
                                             grid.Scan("6262");
                                             Press(Qt::Key_F2);
                                           }},
                                          {"Figure, typed and refused", [](ScanningGrid& grid) {
                                             grid.Scan("6262");
                                             Type("-1");
                                             Press(Qt::Key_Return);
                                           }}};
  ExpectKeys(
      states,
      {
          {"Return", {"Ready 4,1 (4,3)=12", "Ready 4,1", "Figure Typed 4,3 '-1'[-1]"}},
          {"Enter", {"Ready 4,1 (4,3)=12", "Ready 4,1", "Figure Typed 4,3 '-1'[-1]"}},
          {"Tab", {"Idle 4,4 (4,3)=12", "Idle 4,4", "Figure Typed 4,3 '-1'[-1]"}},
          {"Backtab", {"Idle 3,6 (4,3)=12", "Idle 3,6", "Figure Typed 4,3 '-1'[-1]"}},
          {"Escape", {"Figure 4,3", "Figure 4,3", "Figure 4,3"}},
          {"Left", {"Figure 4,4 (4,3)=12", "Figure Opened 4,3 '12'@1", "Figure Typed 4,3 '-1'[-1]"}},
          {"Right", {"Idle 4,2 (4,3)=12", "Figure Opened 4,3 '12'@2", "Figure Typed 4,3 '-1'[-1]"}},
          {"Up", {"Idle 3,3 (4,3)=12", "Idle 3,3", "Figure Typed 4,3 '-1'[-1]"}},
          {"Down", {"Idle 5,3 (4,3)=12", "Idle 5,3", "Figure Typed 4,3 '-1'[-1]"}},
          {"Home", {"Figure Typed 4,3 '12'@0", "Figure Opened 4,3 '12'@0", "Figure Typed 4,3 '-1'@0"}},
          {"End", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'@2", "Figure Typed 4,3 '-1'@2"}},
          {"Ctrl+Home", {"Idle 1,0 (4,3)=12", "Idle 1,0", "Figure Typed 4,3 '-1'[-1]"}},
          {"Ctrl+End", {"Idle 6,6 (4,3)=12", "Idle 6,6", "Figure Typed 4,3 '-1'[-1]"}},
          {"PageUp", {"Idle 1,3 (4,3)=12", "Idle 1,3", "Figure Typed 4,3 '-1'[-1]"}},
          {"PageDown", {"Idle 6,3 (4,3)=12", "Idle 6,3", "Figure Typed 4,3 '-1'[-1]"}},
          {"Delete", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 ''@0", "Figure Typed 4,3 ''@0"}},
          {"Ctrl+Delete", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 ''@0", "Figure Typed 4,3 ''@0"}},
          {"Backspace", {"Figure Typed 4,3 '1'@1", "Figure Opened 4,3 ''@0", "Figure Typed 4,3 ''@0"}},
          {"Insert", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"F2", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"F5", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"x", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"6", {"Figure Typed 4,3 '126'@3", "Figure Opened 4,3 '6'@1", "Figure Typed 4,3 '6'@1"}},
          {"Space", {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"Ctrl+A",
           {"Figure Typed 4,3 '12'[12]", "Figure Opened 4,3 '12'[12]", "Figure Typed 4,3 '-1'[-1]"}},
          {"Ctrl+C",
           {"Figure Typed 4,3 '12'@2", "Figure Opened 4,3 '12'[12] copies 12",
            "Figure Typed 4,3 '-1'[-1] copies -1"}},
          {"Ctrl+V", {"Figure Typed 4,3 '123'@3", "Figure Opened 4,3 '3'@1", "Figure Typed 4,3 '3'@1"}},
          {"Ctrl+V lines",
           {"Idle 4,3 (4,3)=3 (5,3)=4", "Idle 4,3 (4,3)=3 (5,3)=4", "Idle 4,3 (4,3)=3 (5,3)=4"}},
          {"Ctrl+Tab", {"Idle 4,3 (4,3)=12 leaves", "Idle 4,3 leaves", "Figure Typed 4,3 '-1'[-1]"}},
          {"Ctrl+Shift+Tab", {"Idle 4,3 (4,3)=12 leaves", "Idle 4,3 leaves", "Figure Typed 4,3 '-1'[-1]"}},
      });
}

}  // namespace
}  // namespace koru::test
