#include <gtest/gtest.h>

#include <QHeaderView>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class ColumnFittingTest : public GridViewTest {
 protected:
  [[nodiscard]] std::vector<int> Widths() const {
    std::vector<int> widths;
    for (int col = 0; col < grid.Cols(); ++col)
      widths.push_back(view->isColumnHidden(col) ? 0 : view->columnWidth(col));
    return widths;
  }
  /// Counts the columns that are resized from now on.
  void CountResizes() {
    QObject::connect(view->horizontalHeader(), &QHeaderView::sectionResized, view, [this] { ++resizes; });
  }

  int resizes = 0;
};

TEST_F(ColumnFittingTest, The_columns_fill_the_window_and_follow_its_width) {
  Start();
  EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
  window.resize(900, 300);
  QApplication::processEvents();
  QApplication::processEvents();
  EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
}

TEST_F(ColumnFittingTest, A_longer_text_widens_its_column_and_one_that_fits_moves_nothing) {
  Start();
  const std::vector<int> before = Widths();
  CountResizes();
  grid.SetTextMatrix(1, 2, "7");
  QApplication::processEvents();
  EXPECT_EQ(resizes, 0);
  grid.SetTextMatrix(1, 2, "123456789012345");
  QApplication::processEvents();
  EXPECT_GT(Widths()[2], before[2]);
}

TEST_F(ColumnFittingTest, A_column_without_width_is_hidden_until_it_gets_one) {
  Start();
  const int width = grid.ColWidth(3);
  grid.SetColWidth(3, 0);
  QApplication::processEvents();
  EXPECT_TRUE(view->isColumnHidden(3));
  grid.SetColWidth(3, width);
  QApplication::processEvents();
  EXPECT_FALSE(view->isColumnHidden(3));
}

TEST_F(ColumnFittingTest, A_column_that_the_user_has_resized_keeps_its_width) {
  Start();
  view->setColumnWidth(2, 111);
  grid.SetTextMatrix(1, 2, "123456789012345678901234");
  grid.AddItem("4");
  window.resize(900, 300);
  QApplication::processEvents();
  EXPECT_EQ(Widths()[2], 111);
  const std::vector<int> widths = Widths();
  grid.SetRows(1);
  {
    const GridRedrawOff off(grid);
    grid.AddItem("1");
    grid.AddItem("2");
  }
  QApplication::processEvents();
  EXPECT_EQ(Widths(), widths) << "also when other rows are loaded";
}

TEST_F(ColumnFittingTest, Walking_through_the_rows_resizes_no_column_whose_texts_fit) {
  grid.SetRows(200);
  Start();
  CountResizes();
  for (int i = 0; i < 100; ++i) {
    Press(Qt::Key_Down);
    QApplication::processEvents();
  }
  EXPECT_EQ(Current(), std::pair(101, 2));
  EXPECT_EQ(resizes, 0);
}

TEST_F(ColumnFittingTest, In_a_narrow_window_a_long_name_is_whole_and_the_other_columns_scroll) {
  const char* const name = "شير پاستوريزه پرچرب يك ليتري ميهن";
  grid.SetTextMatrix(2, 1, name);
  grid.SetTextMatrix(2, 2, "1234567890");
  window.resize(320, 300);
  Start();
  EXPECT_GE(Widths()[1], view->fontMetrics().horizontalAdvance(QString::fromUtf8(name)));
  EXPECT_GE(Widths()[2], view->fontMetrics().horizontalAdvance(QStringLiteral("1234567890")));
  EXPECT_GT(view->horizontalHeader()->length(), view->viewport()->width());
}

}  // namespace
}  // namespace koru::test
