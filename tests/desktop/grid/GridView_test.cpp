#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include "desktop/toolkit/QtText.h"
#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

TEST_F(GridViewTest, The_keyboard_comes_to_the_first_cell_to_fill) {
  Start();
  EXPECT_EQ(Current(), std::pair(1, 2));
}

TEST_F(GridViewTest, Arrows_move_as_in_a_spreadsheet_also_out_of_a_cell_that_is_being_typed) {
  Start();
  Press(Qt::Key_Down);
  EXPECT_EQ(Current(), std::pair(2, 2));
  Type("3");
  Press(Qt::Key_Down);
  EXPECT_EQ(Cell(2, 2), "3");
  EXPECT_EQ(Current(), std::pair(3, 2));
  Press(Qt::Key_Left);  // right to left: the next column
  EXPECT_EQ(Current(), std::pair(3, 3));
  Press(Qt::Key_Right);
  EXPECT_EQ(Current(), std::pair(3, 2));
}

TEST_F(GridViewTest, Delete_empties_a_cell_and_with_Ctrl_asks_for_the_line_to_go) {
  Start();
  grid.SetTextMatrix(1, 2, "15");
  Press(Qt::Key_Delete);
  EXPECT_EQ(Cell(1, 2), "");
  EXPECT_EQ(grid.Rows(), 4);
  bool allowed = false;
  grid.RowDeleting.Always([&] { grid.SetDeleteAllowed(allowed); });
  Press(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(grid.Rows(), 4);
  allowed = true;
  Press(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(Cell(1, 1), "مهره");
  grid.SetCurrent(1, 1);
  Press(Qt::Key_Delete);
  EXPECT_EQ(grid.Rows(), 2);
}

TEST_F(GridViewTest, After_a_line_is_deleted_the_one_that_takes_its_place_is_current) {
  for (const char* name : {"ميخ", "آچار", "انبر"}) {
    grid.AddItem(std::to_string(grid.Rows()));
    grid.SetTextMatrix(grid.Rows() - 1, 1, name);
  }
  Start();
  grid.SetCurrent(2, 2);
  const auto deleteLine = [this] {
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(view->currentIndex(), view->model()->index(grid.Row() - 1, grid.Col()));
    return Cell(grid.Row(), 1);
  };
  EXPECT_EQ(deleteLine(), "واشر");
  EXPECT_EQ(Current(), std::pair(2, 2));
  EXPECT_EQ(deleteLine(), "ميخ");
  grid.SetCurrent(4, 1);
  EXPECT_EQ(deleteLine(), "آچار") << "the last line";
  EXPECT_EQ(Current(), std::pair(3, 1));
}

TEST_F(GridViewTest, After_the_only_line_is_deleted_the_grid_keeps_the_focus) {
  grid.SetRows(2);
  Start();
  Press(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_FALSE(view->currentIndex().isValid());
  EXPECT_TRUE(view->hasFocus());
  Press(Qt::Key_Return);
  Type("6");
}

TEST_F(GridViewTest, A_click_on_a_title_sorts_and_shows_the_column_that_is_sorted) {
  grid.HeaderClick.Always([this](int col) { grid.Sort(col, SortMode::GenericAscending); });
  Start();
  const int x = view->columnViewportPosition(1) + view->columnWidth(1) / 2;
  QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, {x, 10});
  EXPECT_EQ(Cell(1, 1), "پيچ");
  EXPECT_EQ(view->horizontalHeader()->sortIndicatorSection(), 1);
  QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, {x, 10});
  EXPECT_EQ(view->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
  grid.RemoveItem(1);
  EXPECT_EQ(view->horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(GridViewTest, The_menu_of_a_title_and_of_a_row_sorts_downwards_and_back_and_says_what_saving_keeps) {
  grid.SortWanted.Always([this](const SortRequest& request) {
    if (request.order == RowOrder::Entry) return grid.SortByEntry();
    grid.Sort(request.col, request.order == RowOrder::Descending ? SortMode::GenericDescending
                                                                 : SortMode::GenericAscending);
  });
  for (int row = 1; row < grid.Rows(); ++row) grid.SetTextMatrix(row, 2, std::to_string(10 * (row % 3)));
  Start();
  grid.SetCurrent(3, 2);
  QSignalSpy reported(view, &GridView::reported);
  const auto choose = [](int entry) {
    QTimer::singleShot(0, qApp, [entry] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      QList<QAction*> entries = menu->actions();
      while (!entries.front()->text().startsWith(QStringLiteral("مرتب"))) entries.removeFirst();
      entries.at(entry)->trigger();
      menu->close();
    });
  };
  const QPoint title(view->columnViewportPosition(2) + view->columnWidth(2) / 2, 10);
  choose(1);
  emit view->horizontalHeader()->customContextMenuRequested(title);
  EXPECT_EQ(Cell(1, 2) + " " + Cell(2, 2) + " " + Cell(3, 2), "20 10 0");
  EXPECT_EQ(Current(), std::pair(3, 2)) << "the current good is still current";
  EXPECT_EQ(Cell(3, 1), "واشر");
  EXPECT_EQ(view->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
  ASSERT_EQ(reported.count(), 1);
  EXPECT_TRUE(reported.front().front().toString().contains(QStringLiteral("ثبت")));
  choose(0);
  const QPoint cell = view->visualRect(view->currentIndex()).center();
  QContextMenuEvent right(QContextMenuEvent::Keyboard, cell, view->viewport()->mapToGlobal(cell));
  QApplication::sendEvent(view->viewport(), &right);
  EXPECT_EQ(Current(), std::pair(1, 2));
  EXPECT_EQ(Cell(1, 1), "واشر");
  choose(2);
  QApplication::sendEvent(view->viewport(), &right);
  EXPECT_EQ(Cell(1, 1) + Cell(2, 1) + Cell(3, 1), "پيچمهرهواشر");
  EXPECT_EQ(view->horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(GridViewTest, A_larger_number_than_its_column_shows_unmarked_is_marked_until_it_is_changed) {
  ColumnStyle count;
  count.number = true;
  count.maxUnmarked = 1e9;
  count.markText = QStringLiteral("بيشتر از 1,000,000,000");
  view->SetColumnStyle(2, count);
  Start();
  const QModelIndex cell = view->model()->index(1, 2);
  const QColor ground(0xFF, 0xE3, 0xB8);
  grid.SetTextMatrix(2, 2, "1000000000");
  EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
  EXPECT_EQ(PixelsOf(*view->viewport(), ground), 0);
  grid.SetTextMatrix(2, 2, "1000000000.5");
  EXPECT_EQ(cell.data(Qt::ToolTipRole).toString(), count.markText);
  EXPECT_GT(PixelsOf(*view->viewport(), ground), 100);
  grid.SetTextMatrix(2, 2, "10");
  EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
  EXPECT_EQ(PixelsOf(*view->viewport(), ground), 0);
}

TEST_F(GridViewTest, A_double_click_reports_the_row_and_Enter_does_in_a_list) {
  int opened = 0;
  grid.DblClick.Always([&] { opened = grid.Row(); });
  Start();
  const QPoint cell = view->visualRect(view->model()->index(1, 1)).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell);
  EXPECT_EQ(opened, 2);
  grid.SetEditMask("0000");
  grid.SetCurrent(3, 1);
  Press(Qt::Key_Return);
  EXPECT_EQ(opened, 3);
}

TEST_F(GridViewTest, Ctrl_Tab_leaves_the_grid_and_the_form_learns_of_it) {
  int left = 0;
  grid.LeaveGrid.Always([&] { ++left; });
  Button cmd(form, "cmd");
  binding.Bind(cmd, *other);
  Start();
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(other->hasFocus());
  EXPECT_EQ(left, 1);
  EXPECT_EQ(form.Focus(), &cmd);
}

TEST_F(GridViewTest, The_menu_offers_to_delete_a_line_only_where_lines_can_go) {
  Start();
  const auto deleting = [this] {
    bool enabled = false;
    QTimer::singleShot(0, view, [&enabled] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (const QAction* const entry : menu->actions()) {
        if (entry->text().startsWith(QStringLiteral("حذف سطر"))) enabled = entry->isEnabled();
      }
      menu->close();
    });
    const QPoint at = view->visualRect(view->currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view->viewport(), &event);
    return enabled;
  };
  EXPECT_TRUE(deleting());
  grid.SetLocked(true);
  EXPECT_FALSE(deleting());
}

TEST_F(GridViewTest, An_empty_row_that_is_removed_while_the_user_moves_on_leaves_the_target_cell_current) {
  Start();
  grid.RowChange.Always([this] {
    if (grid.Row() == 1) grid.RemoveItem(1);
  });
  Press(Qt::Key_Down);
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(Current(), std::pair(1, 2));
  EXPECT_EQ(view->currentIndex().row(), 0);
  EXPECT_EQ(Cell(1, 1), "مهره");
}

TEST_F(GridViewTest, Shortage_and_surplus_carry_signs_of_different_shape_and_colour) {
  const QColor red(0xA0, 0x1C, 0x14);
  view->SetColumnStyle(3, {.number = true, .grouped = false, .sign = ColumnStyle::Sign::Down, .color = red});
  Start();
  EXPECT_EQ(PixelsOf(*view->viewport(), red), 0);
  grid.SetTextMatrix(1, 3, "5");
  EXPECT_GT(PixelsOf(*view->viewport(), red), 10);
  EXPECT_EQ(Cell(1, 3), "5");
}

/// Collects what is painted of a widget.
class PaintedRegion : public QObject {
 public:
  explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) region_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
  [[nodiscard]] QRect Bounds() const { return region_.boundingRect(); }

 private:
  QRegion region_;
};

TEST_F(GridViewTest, An_arrow_key_redraws_the_two_rows_that_it_moves_between_and_no_other) {
  grid.SetRows(100);
  Start();
  QApplication::processEvents();
  const PaintedRegion painted(*view->viewport());
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(painted.Bounds(), QRect(0, 0, view->viewport()->width(), 2 * view->rowHeight(0)));
}

TEST_F(GridViewTest, A_full_counting_is_shown_and_walked_through_without_a_wait) {
  constexpr int kFull = 32767;
  grid.SetRows(kFull + 1);
  QElapsedTimer clock;
  clock.start();
  Start();
  grid.SetCurrent(kFull, 2);
  EXPECT_FALSE(view->grab().isNull());
  EXPECT_LT(clock.elapsed(), 2000);
  EXPECT_TRUE(view->viewport()->rect().intersects(view->visualRect(view->currentIndex())));
}

TEST_F(GridViewTest, After_the_grid_is_gone_the_view_shows_nothing_and_takes_no_keys) {
  Start();
  Type("4");
  binding.Detach();
  EXPECT_EQ(view->model()->rowCount(), 0);
  QTest::keyClick(view, Qt::Key_Delete, Qt::ControlModifier);
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(GridViewTest, Enter_skips_a_filled_rate_and_stops_at_an_empty_one) {
  view->SetEnterMoves({.down = false, .skipped = 3});
  grid.SetTextMatrix(1, 3, "250");
  Start();
  grid.SetCurrent(1, 2);
  Type("4");
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), (std::pair{2, 2})) << "the rate of the first row is filled in";
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), (std::pair{2, 3})) << "the rate of the second is not";
  grid.SetCurrent(1, 2);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Current(), (std::pair{1, 3})) << "Tab visits every cell";
}

TEST_F(GridViewTest, Enter_moves_down_where_the_user_wants_it_to_and_stays_in_the_last_row) {
  view->SetEnterMoves({.down = true, .skipped = 3});
  Start();
  grid.SetCurrent(1, 2);
  for (const char* const count : {"4", "5", "6"}) {
    Type(count);
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(Cell(1, 2) + Cell(2, 2) + Cell(3, 2), "456");
  EXPECT_EQ(Current(), (std::pair{3, 2}));
  grid.SetCurrent(1, 3);
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), (std::pair{2, 3}));
}

}  // namespace
}  // namespace koru::test
