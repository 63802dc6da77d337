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

TEST_F(GridModelTest, Rows_that_are_added_removed_or_changed_are_shown_at_once) {
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

TEST_F(GridModelTest, While_redraw_is_off_the_rows_before_are_shown_as_they_are_now) {
  Add("1", "پيچ", "10");
  Add("2", "مهره", "20");
  {
    const GridRedrawOff off(grid);
    Add("3", "واشر", "30");
    grid.SetTextMatrix(1, 1, "پيچ بزرگ");
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(Shown(0, 1), QStringLiteral("پيچ بزرگ"));
    grid.RemoveItem(1);
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(Shown(0, 1), QStringLiteral("مهره"));
    grid.SetRows(1);
    EXPECT_EQ(model.rowCount(), 0);
    Add("1", "ميخ", "40");
  }
  ASSERT_EQ(model.rowCount(), 1);
  EXPECT_EQ(Shown(0, 1), QStringLiteral("ميخ"));
}

TEST_F(GridModelTest, Views_read_the_same_rows_until_a_change_is_complete) {
  Add("1", "پيچ", "10");
  Add("2", "مهره", "20");
  std::vector<std::string> shown;
  const auto read = [&] {
    EXPECT_TRUE(model.IsChanging());
    std::string names;
    for (int row = 0; row < model.rowCount(); ++row) names += FromQt(Shown(row, 1)) + " ";
    shown.push_back(names);
  };
  QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, &model, read);
  QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, &model, read);
  QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &model, read);
  grid.RemoveItem(1);
  grid.AddItem("2");
  grid.SetCols(2);
  EXPECT_EQ(shown, (std::vector<std::string>{"پيچ مهره ", "مهره ", "مهره  "}));
  EXPECT_EQ(model.columnCount(), 2);
}

TEST_F(GridModelTest, A_failing_listener_leaves_no_change_of_rows_incomplete) {
  Add("1", "پيچ", "10");
  {
    const Subscription failing =
        grid.RowsChanging.Subscribe([](const GridChange&) { throw std::runtime_error("no window"); });
    EXPECT_THROW(grid.AddItem("2"), std::runtime_error);
  }
  EXPECT_FALSE(model.IsChanging());
  EXPECT_EQ(model.rowCount(), 2);
  grid.RemoveItem(2);
  EXPECT_EQ(model.rowCount(), 1);
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
