#include "desktop/grid/ColumnArrangement.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>

#include "desktop/grid/GridHeader.h"
#include "desktop/grid/KeptColumns.h"
#include "tests/desktop/grid/GridViewTest.h"
#include "tests/support/KeptTexts.h"

namespace koru::test {
namespace {

class ColumnArrangementTest : public GridViewTest {
 protected:
  [[nodiscard]] QHeaderView& Titles() const { return *view->horizontalHeader(); }
  /// The edge of a column that a user drags to resize it.
  [[nodiscard]] QPoint EdgeOf(int col) const {
    const int left = Titles().sectionViewportPosition(col);
    return {view->isRightToLeft() ? left + 1 : left + Titles().sectionSize(col) - 1, 8};
  }
  /// Drags the edge of a column until it is wider by that number of pixels.
  void DragEdge(int col, int pixels) {
    DragMouse(EdgeOf(col), EdgeOf(col) + QPoint(view->isRightToLeft() ? -pixels : pixels, 0));
  }
  /// Drags the title of a column to the place of another one.
  void DragTitle(int col, int to) {
    const auto middle = [this](int at) {
      return QPoint(Titles().sectionViewportPosition(at) + Titles().sectionSize(at) / 2, 8);
    };
    const bool isRight = middle(to).x() > middle(col).x();
    DragMouse(middle(col), middle(to) + QPoint(isRight ? 8 : -8, 0));
  }
  void DragMouse(QPoint from, QPoint to) {
    QWidget* const at = Titles().viewport();
    QTest::mousePress(at, Qt::LeftButton, {}, from);
    MoveHeld(at, (from + to) / 2);
    MoveHeld(at, to);
    QTest::mouseRelease(at, Qt::LeftButton, {}, to);
    QApplication::processEvents();
  }
  static void MoveHeld(QWidget* at, QPoint to) {
    QMouseEvent move(QEvent::MouseMove, to, at->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(at, &move);
  }
  [[nodiscard]] std::string Order() const {
    std::string order;
    for (int place = 0; place < Titles().count(); ++place)
      order += std::to_string(Titles().logicalIndex(place));
    return order;
  }

  KeptTexts kept;
};

TEST_F(ColumnArrangementTest, A_text_of_widths_and_order_reads_back_and_a_damaged_one_changes_nothing) {
  const ColumnArrangement both{.widths = {{3, 260}, {6, 90}}, .order = {0, 1, 3, 2}};
  EXPECT_EQ(ToText(both), "3=260 6=90 | 0 1 3 2");
  EXPECT_EQ(ArrangementOf(ToText(both)), both);
  const ColumnArrangement widths{.widths = {{3, 260}}, .order = {}};
  EXPECT_EQ(ArrangementOf(ToText(widths)), widths);
  const ColumnArrangement order{.widths = {}, .order = {1, 0}};
  EXPECT_EQ(ArrangementOf(ToText(order)), order);
  EXPECT_EQ(ToText({}), "");
  for (const char* damaged : {"x", "3", "3=", "3=-5", "3=0", "3=260x", "3=99999999999", "3=260 |", "| 0 0",
                              "| 1 2", "| 0 x", "3 = 260"}) {
    const ColumnArrangement read = ArrangementOf(damaged);
    EXPECT_TRUE(read.order.empty()) << damaged;
    EXPECT_EQ(read.widths.empty(), std::string_view(damaged) != "3=260 |") << damaged;
  }
}

TEST_F(ColumnArrangementTest, A_dragged_width_stays_and_the_other_columns_share_the_rest) {
  Start();
  const int before = view->columnWidth(2);
  DragEdge(2, 40);
  EXPECT_EQ(view->columnWidth(2), before + 40);
  EXPECT_EQ(Titles().length(), view->viewport()->width()) << "the name gives way";
  window.resize(900, 300);
  QApplication::processEvents();
  QApplication::processEvents();
  EXPECT_EQ(view->columnWidth(2), before + 40);
  EXPECT_EQ(Titles().length(), view->viewport()->width());
}

TEST_F(ColumnArrangementTest, A_dragged_width_comes_back_at_the_next_start) {
  KeepColumns(*view, &kept, "Columns.lines");
  Start();
  DragEdge(3, -20);
  EXPECT_EQ(kept.writes, 1) << "once for a drag";
  const int width = view->columnWidth(3);
  GridView next(&window);
  KeepColumns(next, &kept, "Columns.lines");
  next.SetGrid(&grid);
  next.show();
  QApplication::processEvents();
  EXPECT_EQ(next.columnWidth(3), width);
  QTest::mouseClick(next.horizontalHeader()->viewport(), Qt::LeftButton, {}, {20, 8});
  EXPECT_EQ(kept.writes, 1) << "a click changes nothing";
  next.SetGrid(nullptr);
}

TEST_F(ColumnArrangementTest, A_moved_column_stays_where_it_is_and_comes_back_at_the_next_start) {
  KeepColumns(*view, &kept, "Columns.lines");
  Start();
  DragTitle(3, 2);
  EXPECT_EQ(Order(), "0132");
  grid.SetFormatString("رديف|^نام              |^شمارش    |^نرخ       ");
  grid.SetRows(1);
  grid.AddItem("1");
  QApplication::processEvents();
  EXPECT_EQ(Order(), "0132");
  GridView next(&window);
  KeepColumns(next, &kept, "Columns.lines");
  next.SetGrid(&grid);
  next.show();
  QApplication::processEvents();
  EXPECT_EQ(next.horizontalHeader()->visualIndex(3), 2);
  next.SetGrid(nullptr);
}

TEST_F(ColumnArrangementTest, Enter_and_Tab_fill_the_cells_in_the_order_that_is_shown) {
  Start();
  DragTitle(3, 2);
  grid.SetCurrent(1, 3);
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(1, 2));
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, 3));
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Current(), std::pair(1, 2));
  Press(view->isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
  EXPECT_EQ(Current(), std::pair(1, 3));
}

TEST_F(ColumnArrangementTest,
       A_scan_leads_to_the_first_figure_shown_also_when_the_barcodes_are_the_last_column) {
  view->SetScanColumn(1);
  Start();
  DragTitle(1, 3);
  EXPECT_EQ(Order(), "0231");
  grid.SetCurrent(1, 2);
  view->Scanning().Scanned(QStringLiteral("واشر"));
  EXPECT_EQ(Current(), std::pair(3, 2));
}

TEST_F(ColumnArrangementTest, A_double_click_on_the_edge_fits_one_column_and_the_menu_fits_all) {
  KeepColumns(*view, &kept, "Columns.lines");
  Start();
  const int fitted = view->columnWidth(2);
  DragEdge(2, 50);
  DragTitle(3, 2);
  ASSERT_NE(view->columnWidth(2), fitted);
  QTest::mouseDClick(Titles().viewport(), Qt::LeftButton, {}, EdgeOf(2));
  QTest::mouseRelease(Titles().viewport(), Qt::LeftButton, {}, EdgeOf(2));
  QApplication::processEvents();
  EXPECT_EQ(view->columnWidth(2), fitted);
  EXPECT_EQ(Order(), "0132");
  view->ArrangeAsUsual();
  QApplication::processEvents();
  EXPECT_EQ(Order(), "0123");
  EXPECT_EQ(kept.values.at("Columns.lines"), PropertyValue(std::string()));
}

TEST_F(ColumnArrangementTest, Settings_that_cannot_be_read_or_written_keep_nobody_from_counting) {
  kept.damaged = true;
  KeepColumns(*view, &kept, "Columns.lines");
  Start();
  DragEdge(2, 40);
  EXPECT_EQ(Order(), "0123");
  KeepColumns(*view, nullptr, "Columns.lines");
}

}  // namespace
}  // namespace koru::test
