#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

/// Lines with barcode, code, name, a hidden key, two counts and a rate, as in a counting. The last line has
/// no barcode.
class BlockPasteTest : public GridViewTest {
 protected:
  enum Column { Number, Barcode, Code, Name, Key, First, Second, Rate };

  BlockPasteTest() {
    grid.SetRows(1);
    grid.SetCols(8);
    grid.SetFormatString("رديف|^باركد    |^كد    |^نام       |^كليد   |^شمارش1    |^شمارش2    |^نرخ      ");
    grid.SetEditMask("00000111");
    for (const int col : {First, Second, Rate}) view->SetColumnStyle(col, Figure());
    for (const int col : {Code, Name}) view->SetColumnStyle(col, {});
    ColumnStyle hidden;
    hidden.hidden = true;
    view->SetColumnStyle(Key, hidden);
    view->SetStretchColumn(Name);
    view->SetRowNumbers(true);
    view->SetScanColumn(Barcode);
    view->SetFigureColumns(First, Second);
    AddLine("6260000000011", "101", "پيچ");
    AddLine("6260000000028", "102", "مهره");
    AddLine("6260000000035", "103", "واشر");
    AddLine("", "104", "بسته");
    window.resize(900, 400);
    Start();
    reports = std::make_unique<QSignalSpy>(view, &GridView::reported);
  }

  static ColumnStyle Figure() {
    ColumnStyle style;
    style.number = true;
    return style;
  }
  void AddLine(const char* barcode, const char* code, const char* name) {
    grid.AddItem(std::to_string(grid.Rows()));
    const int row = grid.Rows() - 1;
    grid.SetTextMatrix(row, Barcode, barcode);
    grid.SetTextMatrix(row, Code, code);
    grid.SetTextMatrix(row, Name, name);
    grid.SetTextMatrix(row, Key, "7");
  }
  void Select(int row, int col, int toRow, int toCol) {
    grid.SetCurrent(row, col);
    const auto middle = [this](int atRow, int atCol) {
      return view->visualRect(view->Rows().index(atRow - 1, atCol)).center();
    };
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, middle(row, col));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ShiftModifier, middle(toRow, toCol));
  }
  void PasteAt(int row, int col, const QString& text) {
    QApplication::clipboard()->setText(text);
    PasteAt(row, col);
  }
  void PasteAt(int row, int col) {
    grid.SetCurrent(row, col);
    reports->clear();
    Press(Qt::Key_V, Qt::ControlModifier);
  }
  /// The figures of all lines: counts, and rates after a slash.
  [[nodiscard]] std::string Figures() const {
    std::string all;
    for (int row = 1; row < grid.Rows(); ++row) {
      all += (row == 1 ? "" : " | ") + Cell(row, First) + "," + Cell(row, Second) + "/" + Cell(row, Rate);
    }
    return all;
  }
  void FillCounts() {
    for (int row = 1; row < grid.Rows(); ++row) {
      grid.SetTextMatrix(row, First, std::to_string(10 * row));
      grid.SetTextMatrix(row, Second, std::to_string(10 * row + 1));
    }
  }
  void ClearCounts() {
    for (int row = 1; row < grid.Rows(); ++row) {
      for (const int col : {First, Second, Rate}) grid.SetTextMatrix(row, col, "");
    }
  }
  [[nodiscard]] QString Reported() const {
    return reports->isEmpty() ? QString() : reports->back().front().toString();
  }
  [[nodiscard]] static QString Copied() { return QApplication::clipboard()->text(); }

  std::unique_ptr<QSignalSpy> reports;
};

constexpr const char* kEmpty = ",/ | ,/ | ,/ | ,/";

TEST_F(BlockPasteTest, Shift_and_arrows_select_a_rectangle_which_is_copied_as_a_sheet_takes_it) {
  FillCounts();
  grid.SetCurrent(1, First);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(view->isRightToLeft() ? Qt::Key_Left : Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Current(), std::pair(2, static_cast<int>(Second)));
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "10\t11\n20\t21\n");
}

TEST_F(BlockPasteTest, The_mouse_selects_a_rectangle_by_dragging_and_with_Shift) {
  FillCounts();
  Select(3, Second, 2, First);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "20\t21\n30\t31\n");
  QWidget* const cells = view->viewport();
  const QPoint from = view->visualRect(view->Rows().index(0, First)).center();
  const QPoint to = view->visualRect(view->Rows().index(3, First)).center();
  QTest::mousePress(cells, Qt::LeftButton, {}, from);
  QMouseEvent move(QEvent::MouseMove, to, cells->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(cells, &move);
  QTest::mouseRelease(cells, Qt::LeftButton, {}, to);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "10\n20\n30\n40\n");
}

TEST_F(BlockPasteTest, Enter_Tab_and_a_scan_leave_one_cell_selected_which_alone_is_copied) {
  FillCounts();
  Select(1, First, 3, Second);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 1);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "30");
  Select(1, First, 3, Second);
  view->Scanning().Scanned("6260000000028");
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 1);
  EXPECT_EQ(Current(), std::pair(2, static_cast<int>(First)));
}

TEST_F(BlockPasteTest, A_block_of_figures_keeps_its_shape_where_it_is_pasted) {
  FillCounts();
  Select(1, First, 2, Second);
  Press(Qt::Key_C, Qt::ControlModifier);
  ClearCounts();
  PasteAt(3, Second);
  EXPECT_EQ(Figures(), ",/ | ,/ | ,10/11 | ,20/21");
  EXPECT_EQ(Current(), std::pair(3, static_cast<int>(Second)));
}

TEST_F(BlockPasteTest, A_selected_rectangle_is_pasted_into_from_its_first_cell) {
  QApplication::clipboard()->setText("1\t2\n3\t4\n");
  Select(3, Second, 2, First);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Figures(), ",/ | 1,2/ | 3,4/ | ,/");
}

TEST_F(BlockPasteTest, A_copied_rectangle_with_barcodes_returns_to_its_goods_and_columns_from_everywhere) {
  FillCounts();
  const std::string filled = Figures();
  Select(1, Barcode, 4, Second);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(Copied().startsWith(QStringLiteral("6260000000011\t101\tپيچ\t7\t10\t11\n")))
      << Copied().toStdString();
  for (const int row : {1, 3}) {
    for (const int col : {Barcode, Name, First, Rate}) {
      ClearCounts();
      PasteAt(row, col);
      EXPECT_EQ(Figures(), filled) << row << " " << col;
      EXPECT_EQ(Reported(), QStringLiteral("8 عدد چسبانده شد."));
    }
  }
}

TEST_F(BlockPasteTest, Barcodes_decide_the_line_also_when_a_sheet_has_sorted_the_rows) {
  PasteAt(1, First, QStringLiteral("6260000000035\t3\n6260000000011\t1\n"));
  EXPECT_EQ(Figures(), "1,/ | ,/ | 3,/ | ,/");
  ClearCounts();
  PasteAt(2, Second, QStringLiteral("6260000000035\t3\n6260000000011\t1\n"));
  EXPECT_EQ(Figures(), ",1/ | ,/ | ,3/ | ,/") << "into the column of the cursor";
  ClearCounts();
  PasteAt(2, Barcode, QStringLiteral("۶۲۶۰۰۰۰۰۰۰۰۳۵\t3\n"));
  EXPECT_EQ(Figures(), ",/ | ,/ | 3,/ | ,/") << "any digits, into the first column to fill";
}

TEST_F(BlockPasteTest, Codes_and_names_of_a_sheet_become_no_counts) {
  PasteAt(1, First, QStringLiteral("101\tپيچ\t6260000000011\t5\t6\n102\tمهره\t6260000000028\t7\t8\n"));
  EXPECT_EQ(Figures(), "5,6/ | 7,8/ | ,/ | ,/");
  ClearCounts();
  PasteAt(1, First, QStringLiteral("6260000000011\n6260000000028\n"));
  EXPECT_EQ(Figures(), kEmpty) << "barcodes alone";
  EXPECT_EQ(Reported(), QStringLiteral("0 عدد چسبانده شد."));
  PasteAt(1, First, QStringLiteral("6260000000011\t101\n6260000000028\t102\n"));
  EXPECT_EQ(Figures(), kEmpty) << "barcodes and codes";
}

TEST_F(BlockPasteTest, Barcodes_that_no_line_has_are_counted_and_reported) {
  PasteAt(1, First,
          QStringLiteral("6260000000011\t1\n6269999999999\t2\n6268888888888\t3\n6260000000028\tx\n"));
  EXPECT_EQ(Figures(), "1,/ | ,/ | ,/ | ,/");
  EXPECT_EQ(Reported(),
            QStringLiteral("1 عدد چسبانده شد؛ 1 مقدار جا نداشت، عدد نبود يا پذيرفته نشد؛ باركد 2 سطر "
                           "در اين شمارش نيست."));
}

TEST_F(BlockPasteTest, A_second_row_for_the_same_good_replaces_nothing_and_is_counted) {
  PasteAt(1, First, QStringLiteral("6260000000011\t1\n6260000000011\t2\n"));
  EXPECT_EQ(Figures(), "1,/ | ,/ | ,/ | ,/");
  EXPECT_TRUE(Reported().startsWith(QStringLiteral("1 عدد چسبانده شد؛ 1 مقدار ")))
      << Reported().toStdString();
}

TEST_F(BlockPasteTest, A_row_without_a_barcode_belongs_to_the_line_of_its_name_and_to_no_other) {
  const QString row = QStringLiteral("%1\t%2\t%3\t%4\t7\t%5\t\t\n");
  PasteAt(1, First, row.arg("4", "", "104", "بسته", "9") + row.arg("1", "", "101", "پيچ", "8"));
  EXPECT_EQ(Figures(), ",/ | ,/ | ,/ | 9,/") << "the good of the first line has a barcode";
  EXPECT_TRUE(Reported().contains(QStringLiteral("باركد 1 سطر"))) << Reported().toStdString();
}

TEST_F(BlockPasteTest, The_titles_of_a_sheet_are_left_out) {
  PasteAt(2, First,
          QStringLiteral("رديف\tباركد\tكد\tنام\tكليد\tشمارش1\tشمارش2\tنرخ\n"
                         "1\t6260000000011\t101\tپيچ\t7\t5\t\t\n"));
  EXPECT_EQ(Figures(), "5,/ | ,/ | ,/ | ,/");
  EXPECT_EQ(Reported(), QStringLiteral("1 عدد چسبانده شد."));
}

TEST_F(BlockPasteTest, Moved_columns_are_copied_and_filled_as_they_are_shown) {
  QHeaderView& titles = *view->horizontalHeader();
  titles.moveSection(titles.visualIndex(Rate), titles.visualIndex(First));
  FillCounts();
  Select(1, Rate, 2, First);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "\t10\n\t20\n");
  ClearCounts();
  PasteAt(3, Rate, "500\t1\t2\n");
  EXPECT_EQ(Figures(), ",/ | ,/ | 1,2/500 | ,/");
  ClearCounts();
  PasteAt(1, Rate, QStringLiteral("2\t6260000000028\t102\tمهره\t7\t5\t6\t700\n"));
  EXPECT_EQ(Figures(), ",/ | 5,6/700 | ,/ | ,/") << "a row of the workbook has the order of the grid";
}

TEST_F(BlockPasteTest, Lines_selected_by_their_numbers_are_copied_whole_and_go_back_to_their_goods) {
  FillCounts();
  const std::string filled = Figures();
  QHeaderView& numbers = *view->verticalHeader();
  const auto click = [&](int row, Qt::KeyboardModifiers held) {
    const QPoint at(4, numbers.sectionViewportPosition(row - 1) + 4);
    QTest::mouseClick(numbers.viewport(), Qt::LeftButton, held, at);
  };
  grid.SetCurrent(1, First);
  click(1, {});
  click(4, Qt::ShiftModifier);
  EXPECT_EQ(Current(), std::pair(4, static_cast<int>(First))) << "in the column of the cursor";
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied().count('\n'), 4);
  EXPECT_TRUE(Copied().endsWith(QStringLiteral("\t104\tبسته\t7\t40\t41\t\n"))) << Copied().toStdString();
  ClearCounts();
  PasteAt(3, Second);
  EXPECT_EQ(Figures(), filled);
  click(2, {});
  QApplication::clipboard()->setText("77");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, Second), "77") << "a figure is pasted into the column of the current cell";
}

TEST_F(BlockPasteTest, A_list_that_takes_no_figures_still_selects_rows_and_copies_a_cell) {
  view->SetGrid(nullptr);
  grid.SetEditMask("00000000");
  view->SetGrid(&grid);
  QApplication::processEvents();
  Select(1, Name, 3, Name);
  EXPECT_EQ(view->selectionModel()->selectedRows().size(), 1);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), QStringLiteral("واشر"));
}

}  // namespace
}  // namespace koru::test
