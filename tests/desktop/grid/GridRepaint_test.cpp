#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPaintEvent>
#include <map>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

/// The parts of widgets that are painted, in their own coordinates.
class PaintedParts : public QObject {
 public:
  void Watch(QWidget& widget) { widget.installEventFilter(this); }
  [[nodiscard]] QRect Of(const QWidget& widget) const {
    const auto found = painted_.find(&widget);
    return found == painted_.end() ? QRect() : found->second.boundingRect();
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_[object] += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  std::map<const QObject*, QRegion> painted_;
};

class GridRepaintTest : public GridViewTest {
 protected:
  GridRepaintTest() {
    view->SetRowNumbers(true);
    // As a line whose amounts are calculated from its count.
    grid.CellChanged.Always([this] { grid.SetTextMatrix(grid.Row(), 3, "7"); });
    Start();
    DrawAll();
    for (QWidget* const part :
         {view->viewport(), view->verticalHeader()->viewport(), view->horizontalHeader()->viewport()}) {
      painted.Watch(*part);
    }
  }

  /// Timers without a delay fit columns and lay out rows, which may cause another repaint.
  static void DrawAll() {
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
  }
  /// A row of cells, or of numbers, with its grid lines.
  [[nodiscard]] QRect PlaceOf(int row, const QWidget& part) const {
    return {0, view->rowViewportPosition(row - 1) - 1, part.width(), view->rowHeight(row - 1) + 2};
  }
  [[nodiscard]] bool IsWithin(int row, const QWidget& part) const {
    return PlaceOf(row, part).contains(painted.Of(part));
  }

  PaintedParts painted;
};

TEST_F(GridRepaintTest, A_count_that_is_entered_repaints_its_row_alone) {
  ASSERT_TRUE(grid.UserEdit(1, 2, "5"));
  DrawAll();
  EXPECT_FALSE(painted.Of(*view->viewport()).isEmpty());
  EXPECT_TRUE(IsWithin(1, *view->viewport()));
  EXPECT_TRUE(IsWithin(1, *view->verticalHeader()->viewport()));
  EXPECT_TRUE(painted.Of(*view->horizontalHeader()->viewport()).isEmpty()) << "the titles are the same";
}

TEST_F(GridRepaintTest, A_row_that_gets_another_number_repaints_it) {
  grid.SetTextMatrix(2, 0, "9");
  DrawAll();
  const QWidget& numbers = *view->verticalHeader()->viewport();
  EXPECT_TRUE(painted.Of(numbers).contains(QPoint(numbers.width() / 2, PlaceOf(2, numbers).center().y())));
  EXPECT_TRUE(IsWithin(2, numbers));
}

TEST_F(GridRepaintTest, Rows_in_another_order_repaint_all_numbers) {
  grid.Sort(1, SortMode::GenericDescending);
  DrawAll();
  const QWidget& numbers = *view->verticalHeader()->viewport();
  EXPECT_TRUE(painted.Of(numbers).contains(PlaceOf(1, numbers).center()));
  EXPECT_TRUE(painted.Of(numbers).contains(PlaceOf(3, numbers).center()));
}

}  // namespace
}  // namespace koru::test
