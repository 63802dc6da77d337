#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>
#include <algorithm>
#include <random>
#include <vector>

#include "desktop/grid/GridModel.h"
#include "desktop/toolkit/QtText.h"
#include "tests/desktop/grid/GridViewTest.h"
#include "tests/desktop/grid/ScannerKeys.h"
#include "tests/desktop/grid/ScanningGrid.h"

namespace koru::test {
namespace {

using Rows = std::vector<int>;

/// Six rows, whose names are their numbers of entry.
class ShownRowsTest : public testing::Test {
 protected:
  ShownRowsTest() {
    grid.SetCols(2);
    grid.SetFormatString("رديف|^نام     ");
    model.SetGrid(&grid);
    for (int i = 0; i < 6; ++i) Add();
  }
  void Add() {
    grid.AddItem(std::to_string(++added));
    grid.SetTextMatrix(grid.Rows() - 1, 1, std::to_string(added));
  }
  [[nodiscard]] Rows Names() const {
    Rows names;
    for (int row = 0; row < model.rowCount(); ++row)
      names.push_back(model.index(row, 1).data(Qt::EditRole).toInt());
    return names;
  }

  NoScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  GridModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  int added = 0;
};

TEST_F(ShownRowsTest, Only_the_rows_of_the_filter_are_shown_with_their_own_numbers) {
  model.ShowOnly({2, 5});
  EXPECT_EQ(Names(), (Rows{2, 5}));
  EXPECT_EQ(model.headerData(1, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("5"));
  EXPECT_EQ(model.GridRowOf(model.index(1, 0)), 5);
  EXPECT_EQ(model.CellIndex(5, 1), model.index(1, 1));
  for (const int hidden : {0, 1, 3, 4, 6, 7, -1})
    EXPECT_FALSE(model.CellIndex(hidden, 1).isValid()) << hidden;
  model.ShowAll();
  EXPECT_EQ(Names(), (Rows{1, 2, 3, 4, 5, 6}));
}

TEST_F(ShownRowsTest, A_filter_that_nothing_fits_shows_no_row) {
  model.ShowOnly({});
  EXPECT_TRUE(model.IsFiltered());
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.GridRowOf(model.index(0, 0)), 0);
}

TEST_F(ShownRowsTest, Removed_rows_leave_and_later_ones_keep_their_places) {
  model.ShowOnly({1, 3, 6});
  grid.RemoveItem(2);
  EXPECT_EQ(Names(), (Rows{1, 3, 6}));
  grid.RemoveItem(2);
  EXPECT_EQ(Names(), (Rows{1, 6}));
  grid.SetRows(1);
  EXPECT_EQ(Names(), Rows{});
  Add();
  EXPECT_EQ(Names(), Rows{7}) << "new rows are shown";
}

TEST_F(ShownRowsTest, A_row_that_is_revealed_is_at_its_own_place) {
  model.ShowOnly({1, 6});
  model.Reveal(4);
  model.Reveal(4);
  model.Reveal(9);
  EXPECT_EQ(Names(), (Rows{1, 4, 6}));
}

TEST_F(ShownRowsTest, A_changed_text_is_reported_for_a_shown_row_alone) {
  model.ShowOnly({2, 5});
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  grid.SetTextMatrix(3, 1, "x");
  EXPECT_EQ(changed.count(), 0);
  grid.SetTextMatrix(5, 1, "50");
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.first().first().toModelIndex().row(), 1);
  EXPECT_EQ(Names(), (Rows{2, 50}));
}

TEST_F(ShownRowsTest, Rows_shown_are_right_after_every_change_of_the_grid) {
  std::mt19937 random(3);
  const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  std::vector<std::string> shown;  // the names
  constexpr int kSteps = 3000;
  for (int step = 0; step < kSteps; ++step) {
    const int rows = grid.Rows() - 1;
    const auto name = [&](int row) { return std::string(grid.TextMatrix(row, 1)); };
    const auto isShown = [&](const std::string& text) {
      return std::find(shown.begin(), shown.end(), text) != shown.end();
    };
    switch (pick(6)) {
      case 0: {
        Rows wanted;
        shown.clear();
        for (int row = 1; row <= rows; ++row) {
          if (pick(2) == 0) continue;
          wanted.push_back(row);
          shown.push_back(name(row));
        }
        model.ShowOnly(wanted);
        break;
      }
      case 1: {
        const GridRedrawOff redrawOff(grid);
        for (int i = pick(3); i >= 0; --i) Add();
        break;
      }
      case 2:
        if (rows > 2) grid.RemoveItem(1 + pick(rows));
        break;
      case 3:
        if (rows > 5) grid.SetRows(3 + pick(3));
        break;
      default:
        if (rows > 0) {
          const int row = 1 + pick(rows);
          model.Reveal(row);
          if (!isShown(name(row))) shown.push_back(name(row));
        }
    }
    if (!model.IsFiltered()) continue;
    for (int row = rows + 1; row < grid.Rows(); ++row) shown.push_back(name(row));
    Rows expected;
    for (int row = 1; row < grid.Rows(); ++row) {
      if (isShown(name(row))) expected.push_back(std::stoi(name(row)));
    }
    ASSERT_EQ(Names(), expected) << "after step " << step;
  }
}

class FilteredViewTest : public GridViewTest {
 protected:
  /// Hides the second of the three goods.
  void Filter() {
    Start();
    view->ShowOnly({1, 3});
  }
};

TEST_F(FilteredViewTest, Enter_arrows_and_figures_work_among_the_shown_lines) {
  Filter();
  Type("5");
  Press(Qt::Key_Down);
  EXPECT_EQ(Current(), std::pair(3, 2));
  Type("7");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "5");
  EXPECT_EQ(Cell(2, 2), "");
  EXPECT_EQ(Cell(3, 2), "7");
  EXPECT_EQ(Current(), std::pair(3, 3));
}

TEST_F(FilteredViewTest, Clicks_deletion_and_the_row_number_mean_the_line_that_is_seen) {
  view->SetRowNumbers(true);
  Filter();
  std::vector<int> opened;
  grid.DblClick.Always([&] { opened.push_back(grid.Row()); });
  const QPoint second = view->visualRect(view->model()->index(1, 2)).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(Current(), std::pair(3, 2));
  emit view->verticalHeader()->sectionDoubleClicked(1);
  EXPECT_EQ(opened, std::vector<int>{3});
  grid.RowDeleting.Always([&] { grid.SetDeleteAllowed(true); });
  Press(Qt::Key_Delete, Qt::ControlModifier);
  ASSERT_EQ(grid.Rows(), 3);
  EXPECT_EQ(Cell(2, 1), "مهره") << "the hidden line";
  EXPECT_EQ(view->model()->rowCount(), 1);
  EXPECT_EQ(Current(), std::pair(1, 1));
}

TEST_F(FilteredViewTest, Pasting_fills_shown_lines) {
  Filter();
  QApplication::clipboard()->setText(QStringLiteral("11\n33"));
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2), "11");
  EXPECT_EQ(Cell(2, 2), "");
  EXPECT_EQ(Cell(3, 2), "33");
  EXPECT_EQ(Current(), std::pair(1, 2));
}

TEST_F(FilteredViewTest, A_line_that_the_program_makes_current_is_shown) {
  Filter();
  grid.SetCurrent(2, 2);
  EXPECT_EQ(view->model()->rowCount(), 3);
  EXPECT_EQ(view->currentIndex(), view->model()->index(1, 2));
}

TEST_F(FilteredViewTest, A_filter_that_hides_the_current_line_leads_to_the_first_shown_one) {
  Start();
  grid.SetCurrent(2, 3);
  view->ShowOnly({3});
  EXPECT_EQ(view->model()->rowCount(), 1);
  EXPECT_EQ(Current(), std::pair(3, 2));
  view->ShowOnly({});
  EXPECT_FALSE(view->currentIndex().isValid());
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Tab, Qt::Key_5}) Press(key);
  EXPECT_EQ(Cell(3, 2), "");
  view->ShowAll();
  EXPECT_EQ(view->currentIndex().row(), 2);
}

TEST_F(FilteredViewTest, While_the_keyboard_is_elsewhere_no_other_line_becomes_current) {
  Start();
  other->setFocus();
  view->ShowOnly({3});
  EXPECT_EQ(Current().first, 1);
  EXPECT_FALSE(view->currentIndex().isValid());
  view->setFocus();
  EXPECT_EQ(Current(), std::pair(3, 2));
}

TEST_F(FilteredViewTest, A_click_that_brings_the_keyboard_back_reaches_the_cell_below_the_mouse) {
  for (int i = 0; i < 100; ++i) grid.AddItem(std::to_string(grid.Rows()));
  Start();
  other->setFocus();
  std::vector<int> rows;
  for (int row = 2; row < grid.Rows(); ++row) rows.push_back(row);
  view->ShowOnly(rows);
  view->scrollTo(view->Rows().CellIndex(90, 2));
  const QPoint cell = view->visualRect(view->Rows().CellIndex(90, 2)).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell);
  EXPECT_TRUE(view->hasFocus());
  EXPECT_EQ(Current(), std::pair(90, 2));
}

TEST_F(FilteredViewTest, A_filter_leaves_the_widths_of_columns_alone) {
  Start();
  grid.SetTextMatrix(2, 1, "پيچ خودكار شش گوش با مهره و واشر");
  QApplication::processEvents();
  const int width = view->columnWidth(3);
  view->ShowOnly({1, 3});
  QApplication::processEvents();
  EXPECT_EQ(view->columnWidth(3), width);
}

/// Timers without a delay lay out rows and fit columns, one after the other.
void ProcessAll() {
  for (int round = 0; round < 4; ++round) QApplication::processEvents();
}

TEST_F(FilteredViewTest, The_room_of_a_scroll_bar_that_a_filter_makes_needless_moves_no_column) {
  Start();
  view->SetRowNumbers(true);
  for (int i = 0; i < 40; ++i) grid.AddItem(std::to_string(grid.Rows()));
  ProcessAll();
  const auto widths = [this] {
    std::vector<int> all{view->verticalHeader()->width()};
    for (int col = 0; col < grid.Cols(); ++col) all.push_back(view->columnWidth(col));
    return all;
  };
  const std::vector<int> before = widths();
  const int viewport = view->viewport()->width();
  view->ShowOnly({1});
  ProcessAll();
  ASSERT_GT(view->viewport()->width(), viewport);
  EXPECT_EQ(widths(), before);
  window.resize(window.width() + 50, window.height());
  ProcessAll();
  EXPECT_NE(widths(), before) << "the window is larger";
}

TEST_F(FilteredViewTest, A_signed_row_has_its_sign_before_its_number_and_says_what_it_means) {
  view->SetRowNumbers(true);
  view->SetRowSign({[](const Grid& lines, int row) { return lines.TextMatrix(row, 1) == "واشر"; },
                    QStringLiteral("≠"), QStringLiteral("اختلاف")});
  Filter();
  const auto number = [&](int row, int role) {
    return view->model()->headerData(row, Qt::Vertical, role).toString();
  };
  EXPECT_EQ(number(0, Qt::DisplayRole), QStringLiteral("1"));
  EXPECT_EQ(number(0, Qt::ToolTipRole), QString());
  EXPECT_EQ(number(0, Qt::AccessibleTextRole), QStringLiteral("1"));
  EXPECT_EQ(number(1, Qt::DisplayRole), QStringLiteral("≠ 3"));
  EXPECT_EQ(number(1, Qt::ToolTipRole), QStringLiteral("اختلاف"));
  EXPECT_EQ(number(1, Qt::AccessibleTextRole), QStringLiteral("3: اختلاف"));
  EXPECT_TRUE(view->model()->headerData(1, Qt::Vertical, Qt::ForegroundRole).isValid());
}

class FilteredScanTest : public ScanningTest {
 protected:
  FilteredScanTest() {
    view->SetFigureColumns(First, Second);
    view->ShowOnly({2, 4});
    QObject::connect(view, &GridView::unknownScan, &window, [this](const QString& text) { unknown << text; });
  }
  /// The current cell of the grid, which is also that of the view.
  [[nodiscard]] std::pair<int, int> CurrentCell() const {
    EXPECT_EQ(view->currentIndex(), view->Rows().CellIndex(grid.Row(), grid.Col()));
    return {grid.Row(), grid.Col()};
  }

  QStringList unknown;
};

TEST_F(FilteredScanTest, A_scan_shows_the_hidden_line_that_has_the_barcode) {
  view->Scanning().Scanned(QStringLiteral("6261"));
  EXPECT_EQ(view->model()->rowCount(), 3);
  EXPECT_EQ(CurrentCell(), std::pair(3, int{First}));
}

TEST_F(FilteredScanTest, So_does_a_whole_barcode_that_is_typed_into_the_barcode_column) {
  Type(QStringLiteral("6261"));
  Press(Qt::Key_Return);
  EXPECT_EQ(CurrentCell(), std::pair(3, int{First}));
  EXPECT_EQ(unknown, QStringList());
}

TEST_F(FilteredScanTest, The_beginning_of_a_hidden_barcode_shows_nothing) {
  Type(QStringLiteral("111"));
  Press(Qt::Key_Return);
  EXPECT_EQ(view->model()->rowCount(), 2);
  EXPECT_EQ(unknown, QStringList(QStringLiteral("111")));
}

TEST_F(FilteredScanTest, While_no_line_is_shown_a_scan_shows_its_line_or_is_unknown) {
  view->ShowOnly({});
  TimedKeys scanner;
  scanner.Scan(QStringLiteral("62609999"));
  EXPECT_EQ(unknown, QStringList(QStringLiteral("62609999")));
  EXPECT_EQ(view->model()->rowCount(), 0);
  view->Scanning().Scanned(QStringLiteral("6261"));
  EXPECT_EQ(view->model()->rowCount(), 1);
  EXPECT_EQ(CurrentCell(), std::pair(3, int{First}));
}

TEST_F(FilteredScanTest, A_barcode_that_no_line_has_is_unknown_as_without_a_filter) {
  view->Scanning().Scanned(QStringLiteral("999"));
  EXPECT_EQ(unknown, QStringList(QStringLiteral("999")));
  EXPECT_EQ(view->model()->rowCount(), 2);
}

}  // namespace
}  // namespace koru::test
