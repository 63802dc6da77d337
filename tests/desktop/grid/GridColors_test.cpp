#include <gtest/gtest.h>

#include <QHeaderView>

#include "desktop/toolkit/Colors.h"
#include "tests/desktop/Contrast.h"
#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

/// A grid on a light desktop (false) and on a dark one.
class GridColors : public GridViewTest, public testing::WithParamInterface<bool> {
 protected:
  GridColors() {
    SetColors(*qApp, DesktopPalette(GetParam()));
    grid.SetBackColor(0xF7F2F0);
    for (int row = 1; row < grid.Rows(); ++row) {
      grid.SetRowBackColor(row, row % 2 == 0 ? 0xEEE2DF : 0xF7F2F0);
      grid.SetTextMatrix(row, 2, "1234567");
      grid.SetTextMatrix(row, 3, "7654321");
    }
    view->SetColumnStyle(2, {.number = true, .grouped = true, .sign = {}, .color = {0xA8, 0x1E, 0x16}});
    view->SetColumnStyle(3, {.number = true, .grouped = true, .sign = {}, .color = {0x17, 0x4E, 0xA6}});
  }
  ~GridColors() override { SetColors(*qApp, DesktopPalette(false)); }

  [[nodiscard]] Grounds Cell(int row, int col) const {
    const QRect cell = view->visualRect(view->model()->index(row - 1, col));
    return GroundsOf(view->viewport()->grab(cell.adjusted(3, 3, -3, -3)).toImage());
  }
};

TEST_P(GridColors, Every_cell_can_be_read_and_its_ground_is_that_of_the_desktop) {
  Start();
  grid.SetCurrent(1, 1);
  QApplication::processEvents();
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) {
      const Grounds cell = Cell(row, col);
      EXPECT_EQ(cell.ground.lightness() < 128, GetParam()) << row << ", " << col;
      EXPECT_GE(Contrast(cell.text, cell.ground), 4.5) << row << ", " << col;
    }
  }
}

TEST_P(GridColors, The_titles_can_be_read) {
  Start();
  QHeaderView& titles = *view->horizontalHeader();
  for (int col = 0; col < grid.Cols(); ++col) {
    const QRect title(titles.sectionViewportPosition(col) + 3, 3, titles.sectionSize(col) - 6,
                      titles.height() - 6);
    const Grounds shown = GroundsOf(titles.viewport()->grab(title).toImage());
    EXPECT_EQ(shown.ground.lightness() < 128, GetParam());
    EXPECT_GE(Contrast(shown.text, shown.ground), 4.5) << col;
  }
}

TEST_P(GridColors, Marked_numbers_can_be_read) {
  view->SetColumnStyle(2, {.number = true,
                           .grouped = true,
                           .sign = {},
                           .color = {},
                           .maxUnmarked = 10,
                           .markText = QStringLiteral("x")});
  Start();
  grid.SetCurrent(1, 3);
  QApplication::processEvents();
  const QRect cell = view->visualRect(view->model()->index(1, 2));
  const Grounds shown = GroundsOf(view->viewport()->grab(cell.adjusted(22, 3, -3, -3)).toImage());
  EXPECT_EQ(shown.ground.lightness() < 128, GetParam());
  EXPECT_GE(Contrast(shown.text, shown.ground), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Desktop, GridColors, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "dark" : "light"; });

}  // namespace
}  // namespace koru::test
