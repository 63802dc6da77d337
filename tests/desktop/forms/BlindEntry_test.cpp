#include "desktop/forms/BlindEntry.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/fields/StatusLine.h"
#include "lines/LineState.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"
#include "tests/desktop/grid/ScannerKeys.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

/// One count is entered, and nothing shows the other figures.
class BlindEntryTest : public InvCountingWindowTest {
 protected:
  void SetUp() override {
    window->activateWindow();
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Tick();
    lines.setFocus();
  }

  /// Chooses the switch of a count (1 to 3) in the menu.
  void Choose(int count) {
    Find<QAction>(qPrintable(QStringLiteral("blindEntry%1").arg(count))).trigger();
    QApplication::processEvents();
  }
  [[nodiscard]] std::string ShownColumns() const {
    std::string shown;
    for (int col = 0; col < kLineColumns; ++col) {
      if (!lines.isColumnHidden(col)) shown += std::to_string(col) + " ";
    }
    return shown;
  }
  [[nodiscard]] bool IsShown(const char* name) const { return Find<QWidget>(name).isVisible(); }
  [[nodiscard]] std::string Current() const {
    return std::to_string(Counting().flexDetail.Row()) + " " + std::to_string(Counting().flexDetail.Col());
  }

  GridView& lines = Find<GridView>("flexDetail");
};

TEST_F(BlindEntryTest, It_is_off_at_the_start) {
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 7 8 9 10 11 12 13 14 15 16 ");
  EXPECT_FALSE(IsShown("blindNotice"));
  EXPECT_TRUE(IsShown("totals"));
}

TEST_F(BlindEntryTest, Only_the_count_that_is_entered_is_shown_with_a_line_that_says_so) {
  Choose(2);
  EXPECT_EQ(ShownColumns(), "1 2 3 4 7 ");
  EXPECT_FALSE(IsShown("totals"));
  EXPECT_TRUE(Find<QLabel>("blindSentence").text().contains("«شمارش دوم»"));
  EXPECT_TRUE(IsShown("blindNotice"));
  Choose(1);
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 ");
}

TEST_F(BlindEntryTest, Choosing_the_same_count_again_or_the_button_ends_it) {
  Choose(3);
  Choose(3);
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 7 8 9 10 11 12 13 14 15 16 ");
  Choose(3);
  Find<QPushButton>("endBlindEntry").click();
  QApplication::processEvents();
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 7 8 9 10 11 12 13 14 15 16 ");
  EXPECT_TRUE(IsShown("totals"));
  EXPECT_FALSE(Find<QAction>("blindEntry3").isChecked());
}

TEST_F(BlindEntryTest, Columns_that_the_user_has_resized_are_hidden_and_shown_all_the_same) {
  lines.horizontalHeader()->resizeSection(LineColumn::GoodName, 333);
  Choose(1);
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 ");
  Choose(1);
  EXPECT_EQ(ShownColumns(), "1 2 3 4 6 7 8 9 10 11 12 13 14 15 16 ");
  EXPECT_EQ(lines.columnWidth(LineColumn::GoodName), 333);
}

TEST_F(BlindEntryTest, A_hidden_figure_has_no_text_tooltip_or_mark_for_whatever_asks_the_view) {
  Counting().flexDetail.SetTextMatrix(1, LineColumn::AcceptedCounting, "2000000000");
  Choose(1);
  for (int col = LineColumn::SecondCounting; col < kLineColumns; ++col) {
    const QModelIndex cell = lines.Rows().index(0, col);
    for (const int role : {Qt::DisplayRole, Qt::EditRole, Qt::ToolTipRole, Qt::ForegroundRole})
      EXPECT_FALSE(cell.data(role).isValid()) << col << " " << role;
    EXPECT_FALSE(lines.Rows().IsMarked(cell)) << col;
    EXPECT_FALSE(cell.flags().testFlag(Qt::ItemIsEditable)) << col;
  }
  EXPECT_EQ(lines.Rows().index(0, LineColumn::FirstCounting).data().toString(), "10");
}

TEST_F(BlindEntryTest, The_current_cell_leaves_a_hidden_column_and_what_is_typed_reaches_the_count) {
  Counting().flexDetail.SetCurrent(2, LineColumn::AcceptedCounting);
  Choose(2);
  EXPECT_EQ(Current(), "2 7");
  Type("31");
  Press(Qt::Key_Return);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(2, LineColumn::SecondCounting), "31");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(2, LineColumn::AcceptedCounting), "7");
}

TEST_F(BlindEntryTest, Enter_and_Tab_move_to_the_count_of_the_next_line) {
  Counting().flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  Choose(1);
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), "2 6");
  Counting().flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Current(), "2 6");
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Current(), "1 6");
  Press(Qt::Key_Left);
  EXPECT_EQ(Current(), "1 6") << "nothing is shown after the count";
}

TEST_F(BlindEntryTest, A_scan_leads_to_the_count_even_where_scans_led_to_another_figure_before) {
  test::TimedKeys scanner;
  Counting().flexDetail.SetCurrent(1, LineColumn::Barcode);
  scanner.Scan("6261");
  scanner.Press(Qt::Key_Left);
  scanner.Enter("9");
  Choose(3);
  Counting().flexDetail.SetCurrent(1, LineColumn::Barcode);
  scanner.Scan("6262");
  EXPECT_EQ(Current(), "2 8");
}

TEST_F(BlindEntryTest, A_pasted_row_fills_the_count_alone) {
  Counting().flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  Choose(1);
  QApplication::clipboard()->setText("1\t6261\t101\tبرنج\tعدد\t1\t11\t12\t13\t14\t15\t1\t1\t1\t1\t1\t1");
  lines.Clipboard().Paste(lines.currentIndex());
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::FirstCounting), "11");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::SecondCounting), "");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::AcceptedCounting), "10");
}

TEST_F(BlindEntryTest, Stock_that_has_moved_cannot_be_looked_at_meanwhile) {
  EXPECT_TRUE(Find<QAction>("mnuMovedStock").isVisible());
  Choose(1);
  EXPECT_FALSE(Find<QAction>("mnuMovedStock").isVisible());
  EXPECT_FALSE(Counting().mnuMovedStock.UserClick());
  Choose(1);
  EXPECT_TRUE(Find<QAction>("mnuMovedStock").isVisible());
}

TEST_F(BlindEntryTest, Nothing_compares_counts_meanwhile) {
  Counting().flexDetail.UserEdit(2, LineColumn::SecondCounting, "8");
  Counting().Finder().cboLineKind.UserChoose(static_cast<int>(LineKind::CountsDisagree));
  ASSERT_EQ(lines.Rows().rowCount(), 1);
  Choose(1);
  EXPECT_EQ(lines.Rows().rowCount(), 2) << "the kinds of lines follow from the hidden figures";
  EXPECT_FALSE(IsShown("cboLineKind"));
  EXPECT_FALSE(IsShown("lineProgress"));
  EXPECT_EQ(lines.Rows().headerData(1, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("2"));
  EXPECT_FALSE(Find<QAction>("mnuAcceptEqual").isVisible());
  EXPECT_FALSE(Find<QAction>("mnuImport").isVisible());
  Choose(1);
  EXPECT_EQ(lines.Rows().rowCount(), 1) << "the kind comes back";
  EXPECT_TRUE(IsShown("lineProgress"));
  EXPECT_TRUE(Find<QAction>("mnuAcceptEqual").isVisible());
}

TEST_F(BlindEntryTest, Figures_entered_before_cannot_be_taken_back_but_those_of_the_count_can) {
  Counting().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "11");
  ASSERT_TRUE(Find<QAction>("mnuUndo").isEnabled());
  Choose(2);
  EXPECT_FALSE(Find<QAction>("mnuUndo").isEnabled());
  Counting().flexDetail.UserEdit(1, LineColumn::SecondCounting, "9");
  EXPECT_TRUE(Counting().mnuUndo.UserClick());
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::SecondCounting), "");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::AcceptedCounting), "11");
}

TEST_F(BlindEntryTest, A_save_stores_every_figure) {
  Choose(2);
  Counting().flexDetail.SetCurrent(1, LineColumn::SecondCounting);
  Type("8");
  Tick();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(world.database.Scalar("select FirstCounting from tblInventoryCountingDetail where RowNumber=1"),
            "10");
  EXPECT_EQ(world.database.Scalar("select SecondCounting from tblInventoryCountingDetail where RowNumber=1"),
            "8");
  EXPECT_EQ(world.database.Scalar("select SystemCounting from tblInventoryCountingDetail where RowNumber=1"),
            "12.5");
}

TEST_F(BlindEntryTest, A_figure_that_the_form_refuses_keeps_everything_as_it_is) {
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type("-1");
  Choose(1);
  EXPECT_FALSE(IsShown("blindNotice"));
  EXPECT_FALSE(Find<QAction>("blindEntry1").isChecked());
  EXPECT_TRUE(lines.IsTypedInto());
}

TEST_F(BlindEntryTest, Its_commands_are_whole_in_a_small_window_and_have_names) {
  Choose(1);
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
  EXPECT_EQ(test::InputsWithoutName(*window), QStringList());
}

}  // namespace
}  // namespace koru
