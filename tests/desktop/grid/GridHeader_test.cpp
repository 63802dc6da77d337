#include "desktop/grid/GridHeader.h"

#include <gtest/gtest.h>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class GridHeaderTest : public GridViewTest {
 protected:
  /// The picture of a title, without the strip below it.
  [[nodiscard]] QImage TitleOf(int col) const {
    QHeaderView& header = *view->horizontalHeader();
    const int strip = header.height() - 2 * header.fontMetrics().height() - 4;
    const QRect title(header.sectionViewportPosition(col), 0, header.sectionSize(col),
                      header.height() - strip);
    return header.grab(title).toImage();
  }
};

TEST_F(GridHeaderTest, The_arrow_of_a_sorted_column_covers_no_title_and_takes_no_width_from_it) {
  grid.SetTextMatrix(0, 1, "شمارش مورد قبول انبار مركزي");
  window.resize(330, 300);
  Start();
  const QImage plain = TitleOf(1);
  const int width = view->columnWidth(1);
  const QImage whole = view->horizontalHeader()->grab().toImage();
  for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
    view->horizontalHeader()->setSortIndicator(1, order);
    QApplication::processEvents();
    EXPECT_EQ(TitleOf(1), plain);
    EXPECT_EQ(view->columnWidth(1), width);
    EXPECT_NE(view->horizontalHeader()->grab().toImage(), whole) << "the arrow is shown below";
  }
}

TEST_F(GridHeaderTest, Up_and_down_have_different_arrows) {
  Start();
  view->horizontalHeader()->setSortIndicator(1, Qt::AscendingOrder);
  const QImage up = view->horizontalHeader()->grab().toImage();
  view->horizontalHeader()->setSortIndicator(1, Qt::DescendingOrder);
  EXPECT_NE(view->horizontalHeader()->grab().toImage(), up);
}

}  // namespace
}  // namespace koru::test
