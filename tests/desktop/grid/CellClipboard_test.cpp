#include <QClipboard>
#include <QSignalSpy>

#include "desktop/toolkit/QtText.h"
#include "platform/text/Numbers.h"
#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class CellClipboardTest : public GridViewTest {};

TEST_F(CellClipboardTest, A_number_with_its_separators_is_that_number_typed_or_pasted) {
  Start();
  Type("1,200");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "1200");
  QApplication::clipboard()->setText(QStringLiteral("۱٬۲۰۰٬۰۰۰٫۵"));
  Press(Qt::Key_F2);
  Press(Qt::Key_V, Qt::ControlModifier);
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), "1200000.5");
  QApplication::clipboard()->setText("3,400\r\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 2), "3400");
}

TEST_F(CellClipboardTest, Separators_that_are_typed_one_after_the_other_part_one_number) {
  Start();
  Type("1,200,000.5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "1200000.5");
  Type(QStringLiteral("۱،۲۰۰"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), "1200");
}

TEST_F(CellClipboardTest, A_comma_for_the_decimal_point_never_makes_another_number_of_it_when_pasted) {
  grid.ValidateEdit.Always([this] { grid.SetEditText(NumberText(Val(grid.EditText()))); });
  Start();
  QApplication::clipboard()->setText(QStringLiteral("۱۲،۵\n0,200"));
  grid.SetCurrent(1, 3);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 3) + Cell(2, 3), "");
}

TEST_F(CellClipboardTest, A_block_is_pasted_downwards_and_onwards_into_the_cells_to_fill) {
  Start();
  QApplication::clipboard()->setText(QStringLiteral("12\t3,000\r\n۱۳\t400\t9\r\n14\t\r\n99\t99\r\n"));
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2) + " " + Cell(1, 3), "12 3000");
  EXPECT_EQ(Cell(2, 2) + " " + Cell(2, 3), "13 400");
  EXPECT_EQ(Cell(3, 2) + " " + Cell(3, 3), "14 ");
  EXPECT_EQ(grid.Rows(), 4) << "no line is made";
  grid.SetCurrent(2, 1);
  QApplication::clipboard()->setText("name\t5");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 1), "مهره");
  EXPECT_EQ(Cell(2, 2), "5");
}

TEST_F(CellClipboardTest, Pasting_skips_a_hidden_column) {
  grid.SetColWidth(3, 0);
  grid.SetEditMask("0111");
  Start();
  ASSERT_TRUE(view->isColumnHidden(3));
  grid.SetCurrent(1, 2);
  QApplication::clipboard()->setText("1\t2\t3");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2) + "|" + Cell(1, 3), "1|");
}

TEST_F(CellClipboardTest, Texts_that_do_not_fit_are_left_out_counted_and_reported) {
  Start();
  QSignalSpy reported(view, &GridView::reported);
  const QSignalSpy refused(view, &GridView::refused);
  grid.SetTextMatrix(3, 2, "8");
  QApplication::clipboard()->setText(QStringLiteral("1\n-2\nپنج\n4\n5"));
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2), "1");
  EXPECT_EQ(Cell(2, 2), "") << "refused by the form";
  EXPECT_EQ(Cell(3, 2), "8") << "no number: never 0 over a figure";
  ASSERT_EQ(reported.count(), 1);
  EXPECT_TRUE(reported.front().front().toString().startsWith(QStringLiteral("1 عدد چسبانده شد؛ 4 مقدار ")));
  EXPECT_EQ(refused.count(), 1);
}

TEST_F(CellClipboardTest, After_pasting_the_first_cell_is_the_current_one) {
  Start();
  QSignalSpy reported(view, &GridView::reported);
  QApplication::clipboard()->setText("1\t5\n2\t6\n3\t7\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(3, 2) + Cell(3, 3), "37");
  EXPECT_EQ(Current(), std::pair(1, 2));
  ASSERT_EQ(reported.count(), 1);
  EXPECT_EQ(reported.front().front().toString(), QStringLiteral("6 عدد چسبانده شد."));
}

TEST_F(CellClipboardTest, A_copied_row_fills_its_own_columns_wherever_the_current_cell_is) {
  grid.SetCols(6);
  grid.SetFormatString("رديف|^باركد   |^نام       |^كليد   |^شمارش    |^نرخ       ");
  grid.SetEditMask("000011");
  for (const int col : {4, 5}) view->SetColumnStyle(col, {.number = true, .sign = {}, .color = {}});
  view->SetColumnStyle(2, {});
  ColumnStyle hidden;
  hidden.hidden = true;
  view->SetColumnStyle(3, hidden);
  view->SetScanColumn(1);
  for (int row = 1; row < grid.Rows(); ++row) grid.SetTextMatrix(row, 1, "62" + std::to_string(row));
  Start();
  QApplication::processEvents();
  ASSERT_TRUE(view->isColumnHidden(3));
  const QString rows = QStringLiteral("1\t621\tپيچ\t7\t10\t100\n2\t622\tمهره\t7\t20\t200\n");
  for (const int col : {0, 1, 4, 5}) {
    for (int row = 1; row < grid.Rows(); ++row) {
      for (const int figure : {4, 5}) grid.SetTextMatrix(row, figure, "");
    }
    grid.SetCurrent(1, col);
    QApplication::clipboard()->setText(rows);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Cell(1, 4) + " " + Cell(1, 5), "10 100") << col;
    EXPECT_EQ(Cell(2, 4) + " " + Cell(2, 5), "20 200") << col;
    EXPECT_EQ(Cell(1, 3), "") << "a hidden column keeps its texts";
    EXPECT_EQ(Current(), std::pair(1, col));
  }
  grid.SetCurrent(1, 1);
  QApplication::clipboard()->setText(QStringLiteral("621\tپيچ\t7\t11"));
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 4), "11") << "a part of a row too";
  grid.SetTextMatrix(1, 4, "");
  grid.SetTextMatrix(2, 4, "");
  grid.SetCurrent(2, 1);
  QApplication::clipboard()->setText(rows);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 4) + " " + Cell(2, 4) + " " + Cell(3, 4), "10 20 ") << "whatever the line of the cursor";
}

TEST_F(CellClipboardTest, Lines_pasted_into_a_cell_that_is_being_typed_fill_it_and_the_cells_below) {
  Start();
  Press(Qt::Key_F2);
  Type("8");
  QApplication::clipboard()->setText("1\n2\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2), "1");
  EXPECT_EQ(Cell(2, 2), "2");
  EXPECT_FALSE(view->IsTypedInto());
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(CellClipboardTest, An_empty_line_that_is_removed_while_pasting_moves_no_figure_to_another_line) {
  Start();
  grid.RowChange.Always([this] {
    if (Cell(grid.Row(), 1) == "مهره") grid.RemoveItem(grid.Row());
  });
  grid.SetCurrent(2, 2);
  QApplication::clipboard()->setText("5\n6\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  ASSERT_EQ(grid.Rows(), 3);
  EXPECT_EQ(Cell(2, 1), "واشر");
  EXPECT_EQ(Cell(2, 2), "6");
}

TEST_F(CellClipboardTest, Pasting_nothing_leaves_the_cell_as_it_is) {
  Start();
  grid.SetTextMatrix(1, 2, "8");
  QApplication::clipboard()->clear();
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2), "8");
}

TEST_F(CellClipboardTest, What_is_only_viewed_takes_no_pasted_figures) {
  Start();
  grid.SetLocked(true);
  QApplication::clipboard()->setText("1\n2");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2) + Cell(2, 2), "");
}

TEST_F(CellClipboardTest, A_cell_is_copied_and_without_one_the_clipboard_keeps_what_it_holds) {
  Start();
  grid.SetCurrent(2, 1);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("مهره"));
  grid.SetRows(1);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("مهره"));
}

}  // namespace
}  // namespace koru::test
