#include "desktop/grid/GridModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "desktop/toolkit/QtText.h"
#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

class GridModelTest : public testing::Test {
 protected:
  GridModelTest() {
    grid.SetCols(3);
    grid.SetFormatString("  رديف|^نام       |^مبلغ      ");
    grid.SetEditMask("001");
    model.SetGrid(&grid);
  }

  void Add(const char* number, const char* name, const char* amount) {
    grid.AddItem(number);
    grid.SetTextMatrix(grid.Rows() - 1, 1, name);
    grid.SetTextMatrix(grid.Rows() - 1, 2, amount);
  }
  [[nodiscard]] QString Shown(int row, int col) const {
    return model.index(row, col).data(Qt::DisplayRole).toString();
  }

  test::NoScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  GridModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(GridModelTest, Titles_are_shown_without_the_blanks_that_give_their_widths) {
  EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("رديف"));
  EXPECT_EQ(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("مبلغ"));
}

TEST_F(GridModelTest, Rows_that_come_go_and_change_are_shown_at_once) {
  Add("1", "پيچ", "10");
  Add("2", "مهره", "20");
  Add("3", "واشر", "30");
  ASSERT_EQ(model.rowCount(), 3);
  EXPECT_EQ(Shown(1, 1), QStringLiteral("مهره"));
  grid.RemoveItem(2);
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(Shown(1, 1), QStringLiteral("واشر"));
  grid.SetTextMatrix(1, 1, "پيچ بزرگ");
  EXPECT_EQ(Shown(0, 1), QStringLiteral("پيچ بزرگ"));
  grid.SetRows(1);
  EXPECT_EQ(model.rowCount(), 0);
  grid.SetRows(4);
  EXPECT_EQ(model.rowCount(), 3);
}

TEST_F(GridModelTest, Rows_that_change_behind_a_closed_curtain_are_never_read_beyond_their_end) {
  Add("1", "پيچ", "10");
  Add("2", "مهره", "20");
  {
    const GridRedrawOff off(grid);
    grid.SetRows(1);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_FALSE(model.index(1, 1).data(Qt::DisplayRole).isValid());
  }
  EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(GridModelTest, A_sort_keeps_the_rows_and_only_shows_them_anew) {
  Add("1", "ب", "2");
  Add("2", "الف", "1");
  QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  grid.Sort(2, SortMode::GenericAscending);
  EXPECT_EQ(Shown(0, 1), QStringLiteral("الف"));
  EXPECT_EQ(reset.count(), 0);
  EXPECT_EQ(changed.count(), 1);
}

TEST_F(GridModelTest, Only_cells_of_the_mask_can_be_typed_into_and_none_of_a_locked_grid) {
  Add("1", "پيچ", "10");
  EXPECT_FALSE(model.index(0, 1).flags().testFlag(Qt::ItemIsEditable));
  EXPECT_TRUE(model.index(0, 2).flags().testFlag(Qt::ItemIsEditable));
  grid.SetLocked(true);
  EXPECT_FALSE(model.index(0, 2).flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(GridModelTest, Amounts_are_grouped_for_the_eye_and_edited_as_they_are_kept) {
  model.SetColumnStyle(2, {.number = true, .grouped = true, .sign = {}, .color = {}});
  const std::pair<const char*, const char*> cases[] = {{"1234567.5", "1,234,567.5"},
                                                       {"-1000", "-1,000"},
                                                       {"100", "100"},
                                                       {"-100", "-100"},
                                                       {"1E+15", "1E+15"},
                                                       {"", ""},
                                                       {"12abc", "12abc"},
                                                       {"100000", "100,000"}};
  for (const auto& [kept, shown] : cases) {
    grid.SetRows(1);
    Add("1", "پيچ", kept);
    EXPECT_EQ(FromQt(Shown(0, 2)), shown);
    EXPECT_EQ(FromQt(model.index(0, 2).data(Qt::EditRole).toString()), kept);
  }
}

TEST_F(GridModelTest, Rows_have_the_colours_of_the_grid_with_red_in_the_low_byte) {
  Add("1", "پيچ", "10");
  grid.SetRowBackColor(1, 0xEEE2DF);
  EXPECT_EQ(model.index(0, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(0xDF, 0xE2, 0xEE));
}

}  // namespace
}  // namespace koru
