#include "desktop/grid/RowNumbers.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class RowNumbersTest : public GridViewTest {
 protected:
  RowNumbersTest() { view->SetRowNumbers(true); }

  [[nodiscard]] QPoint NumberOf(int row) const {
    return {view->verticalHeader()->width() / 2,
            view->rowViewportPosition(row - 1) + view->rowHeight(row - 1) / 2};
  }
};

TEST_F(RowNumbersTest, The_numbers_of_the_rows_stay_when_the_columns_scroll) {
  for (int row = 1; row < grid.Rows(); ++row) grid.SetTextMatrix(row, 1, std::string(60, 'w'));
  window.resize(260, 300);
  Start();
  const QWidget& numbers = *view->verticalHeader();
  ASSERT_TRUE(numbers.isVisible());
  ASSERT_GT(view->horizontalScrollBar()->maximum(), 0) << "the columns are wider than the window";
  const QImage before = view->verticalHeader()->grab().toImage();
  const QPoint place = numbers.mapTo(&window, QPoint(0, 0));
  view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum());
  QApplication::processEvents();
  EXPECT_EQ(numbers.mapTo(&window, QPoint(0, 0)), place);
  EXPECT_EQ(view->verticalHeader()->grab().toImage(), before);
  EXPECT_EQ(view->model()->headerData(2, Qt::Vertical).toString(), QStringLiteral("3"));
  EXPECT_TRUE(view->isColumnHidden(0)) << "and are shown once";
}

TEST_F(RowNumbersTest, There_is_room_for_the_largest_number) {
  Start();
  const int before = view->verticalHeader()->width();
  grid.SetTextMatrix(3, 0, "32767000");
  grid.AddItem("32767000");
  QApplication::processEvents();
  EXPECT_GT(view->verticalHeader()->width(), before);
  EXPECT_GE(view->verticalHeader()->width(),
            view->fontMetrics().horizontalAdvance(QStringLiteral("32767000")));
}

TEST_F(RowNumbersTest, A_click_on_a_number_moves_to_its_row_in_the_same_column_and_a_double_click_opens_it) {
  int opened = 0;
  grid.DblClick.Always([&] { opened = grid.Row(); });
  Start();
  QTest::mouseClick(view->verticalHeader()->viewport(), Qt::LeftButton, {}, NumberOf(3));
  EXPECT_EQ(Current(), std::pair(3, 2));
  QTest::mouseDClick(view->verticalHeader()->viewport(), Qt::LeftButton, {}, NumberOf(2));
  EXPECT_EQ(opened, 2);
}

TEST_F(RowNumbersTest, A_refused_count_stays_in_its_cell_when_a_number_is_clicked) {
  Start();
  Type("-5");
  QTest::mouseClick(view->verticalHeader()->viewport(), Qt::LeftButton, {}, NumberOf(3));
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), "-5");
  EXPECT_EQ(Current(), std::pair(1, 2));
}

TEST_F(RowNumbersTest, The_menu_of_a_number_is_that_of_its_row) {
  Start();
  QTimer::singleShot(0, qApp, [] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), QStringLiteral("rowMenu"));
    menu->close();
  });
  emit view->verticalHeader()->customContextMenuRequested(NumberOf(2));
  EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(RowNumbersTest, The_corner_has_the_title_of_the_numbers_and_sorts_by_them) {
  int sorted = -1;
  grid.HeaderClick.Always([&](int col) { sorted = col; });
  Start();
  auto* const corner = view->findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly);
  ASSERT_NE(corner, nullptr);
  ASSERT_TRUE(corner->isVisible());
  const QImage titled = corner->grab().toImage();
  grid.SetTextMatrix(0, 0, "");
  EXPECT_NE(corner->grab().toImage(), titled);
  QTest::mouseClick(corner, Qt::LeftButton);
  EXPECT_EQ(sorted, 0);
}

TEST_F(RowNumbersTest, A_row_whose_number_is_current_shows_its_first_cell_as_current) {
  Start();
  grid.SetCurrent(2, 0);
  EXPECT_EQ(view->currentIndex(), view->model()->index(1, 1));
  EXPECT_EQ(Current(), std::pair(2, 0)) << "the form is not changed by that";
  Press(Qt::Key_Down);
  EXPECT_EQ(Current(), std::pair(3, 1));
}

}  // namespace
}  // namespace koru::test
