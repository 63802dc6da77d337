#include "platform/controls/Grid.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/FakeScreen.h"

namespace koru {
namespace {

class GridTest : public testing::Test {
 protected:
  GridTest() {
    grid.SetCols(3);
    grid.SetFormatString("  رديف|^نام   |^تعداد");
    grid.SetEditMask("001");
    for (const char* name : {"c", "a", "b"}) {
      grid.AddItem(std::to_string(grid.Rows()));
      grid.SetTextMatrix(grid.Rows() - 1, 1, name);
    }
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int row = 1; row < grid.Rows(); ++row) names.emplace_back(grid.TextMatrix(row, 1));
    return names;
  }

  static std::string Text(const GridChange& change) {
    const std::string rows = " " + std::to_string(change.first) + "-" + std::to_string(change.last);
    switch (change.kind) {
      case GridChange::Kind::Columns:
        return "columns";
      case GridChange::Kind::RowsInserted:
        return "inserts" + rows;
      case GridChange::Kind::RowsRemoved:
        return "removes" + rows;
      case GridChange::Kind::RowTexts:
        return "text" + rows;
      case GridChange::Kind::AllTexts:
        return "texts";
    }
    return {};
  }

  /// Collects the reports of row changes from now on.
  void Watch() {
    before = grid.RowsChanging.Subscribe(
        [this](const GridChange& change) { reports.push_back("before " + Text(change)); });
    after = grid.RowsChanged.Subscribe([this](const GridChange& change) { reports.push_back(Text(change)); });
  }

  std::vector<std::string> reports;
  test::FakeScreen screen;
  Form form{screen, "frmGrid"};
  Grid grid{form, "flexGrid"};
  Subscription before;
  Subscription after;
};

TEST_F(GridTest, A_new_grid_is_a_header_row_without_columns) {
  Form other{screen, "frmOther"};
  const Grid fresh(other, "flexFresh");
  EXPECT_EQ(fresh.Rows(), 1);
  EXPECT_EQ(fresh.Cols(), 0);
}

TEST_F(GridTest, The_format_text_gives_titles_alignment_and_widths) {
  EXPECT_EQ(grid.TextMatrix(0, 0), "  رديف");
  EXPECT_EQ(grid.TextMatrix(0, 1), "نام   ") << "blanks are part of the title";
  EXPECT_FALSE(grid.IsCentred(0));
  EXPECT_TRUE(grid.IsCentred(2));
  EXPECT_EQ(grid.ColWidth(0), 6 * 90);
}

TEST_F(GridTest, Cells_hold_what_is_put_into_them) {
  grid.SetTextMatrix(2, 0, "long text that moves its neighbours");
  grid.SetTextMatrix(2, 2, "12.5");
  grid.SetTextMatrix(2, 0, "");
  EXPECT_EQ(grid.TextMatrix(2, 0), "");
  EXPECT_EQ(grid.TextMatrix(2, 1), "a");
  EXPECT_EQ(grid.TextMatrix(2, 2), "12.5");
}

TEST_F(GridTest, A_whole_row_is_appended_at_once) {
  std::vector<GridChange::Kind> changes;
  const Subscription watching =
      grid.RowsChanged.Subscribe([&](const GridChange& change) { changes.push_back(change.kind); });
  grid.SetBackColor(0x00F7F2F0);
  grid.AddRow(std::vector<std::string>{"4", "d", "12.5"});
  EXPECT_EQ(grid.TextMatrix(4, 0), "4");
  EXPECT_EQ(grid.TextMatrix(4, 2), "12.5");
  EXPECT_EQ(grid.RowBackColor(4), 0x00F7F2F0U);
  EXPECT_EQ(changes, std::vector<GridChange::Kind>{GridChange::Kind::RowsInserted});
  EXPECT_THROW(grid.AddRow(std::vector<std::string>{"5", "e"}), std::out_of_range);
  EXPECT_EQ(grid.Rows(), 5);
}

TEST_F(GridTest, An_index_outside_the_grid_is_an_error) {
  EXPECT_THROW(static_cast<void>(grid.TextMatrix(4, 0)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(grid.TextMatrix(1, 3)), std::out_of_range);
  EXPECT_THROW(grid.SetTextMatrix(-1, 0, ""), std::out_of_range);
  EXPECT_THROW(grid.RemoveItem(0), std::out_of_range);
  EXPECT_THROW(grid.SetRows(0), std::out_of_range);
}

TEST_F(GridTest, Rows_are_removed_and_cut) {
  grid.RemoveItem(2);
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "b"}));
  grid.SetRows(1);
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.TextMatrix(0, 1), "نام   ");
}

TEST_F(GridTest, A_window_learns_which_rows_changed) {
  std::vector<GridChange> changes;
  const Subscription watching =
      grid.RowsChanged.Subscribe([&](const GridChange& change) { changes.push_back(change); });
  grid.AddItem("4");
  grid.SetTextMatrix(4, 1, "d");
  grid.RemoveItem(1);
  ASSERT_EQ(changes.size(), 3U);
  EXPECT_EQ(changes[0].kind, GridChange::Kind::RowsInserted);
  EXPECT_EQ(changes[0].first, 4);
  EXPECT_EQ(changes[1].kind, GridChange::Kind::RowTexts);
  EXPECT_EQ(changes[2].kind, GridChange::Kind::RowsRemoved);
  EXPECT_EQ(changes[2].last, 1);
}

TEST_F(GridTest, A_window_learns_of_rows_before_and_after_they_change) {
  std::vector<std::string> reports;
  const Subscription before = grid.RowsChanging.Subscribe([&](const GridChange& change) {
    reports.push_back(Text(change) + " of " + std::to_string(grid.Rows()));
  });
  const Subscription after = grid.RowsChanged.Subscribe([&](const GridChange& change) {
    reports.push_back(Text(change) + ": " + std::to_string(grid.Rows()));
  });
  grid.SetRows(7);
  grid.RemoveItem(2);
  grid.SetRows(2);
  grid.SetCols(2);
  EXPECT_EQ(reports, (std::vector<std::string>{"inserts 4-6 of 4", "inserts 4-6: 7", "removes 2-2 of 7",
                                               "removes 2-2: 6", "removes 2-5 of 6", "removes 2-5: 2",
                                               "columns of 2", "columns: 2"}));
}

TEST_F(GridTest, New_rows_and_texts_are_reported_once_when_redraw_is_on_again) {
  Watch();
  {
    const GridRedrawOff off(grid);
    for (int i = 0; i < 100; ++i) grid.AddItem("x");
    grid.SetTextMatrix(50, 1, "a new row");
    EXPECT_EQ(reports, std::vector<std::string>{});
  }
  EXPECT_EQ(reports, (std::vector<std::string>{"before inserts 4-103", "inserts 4-103"}));
  reports.clear();
  {
    const GridRedrawOff off(grid);
    grid.SetTextMatrix(1, 1, "z");
    grid.SetRowBackColor(2, 1);
  }
  EXPECT_EQ(reports, std::vector<std::string>{"texts"});
  reports.clear();
  { const GridRedrawOff off(grid); }
  EXPECT_EQ(reports, std::vector<std::string>{}) << "nothing has changed";
}

TEST_F(GridTest, Another_current_cell_is_reported_once_when_redraw_is_on_again) {
  int changes = 0;
  grid.CurrentChanged.Always([&] { ++changes; });
  {
    const GridRedrawOff off(grid);
    for (int row = 1; row < grid.Rows(); ++row) grid.SetCurrent(row, 2);
    EXPECT_EQ(changes, 0);
  }
  EXPECT_EQ(changes, 1);
  { const GridRedrawOff off(grid); }
  EXPECT_EQ(changes, 1) << "nothing has changed";
}

TEST_F(GridTest, Removed_rows_are_reported_at_once_also_while_redraw_is_off) {
  Watch();
  const GridRedrawOff off(grid);
  grid.AddItem("4");
  grid.AddItem("5");
  grid.RemoveItem(2);
  EXPECT_EQ(reports, (std::vector<std::string>{"before removes 2-2", "removes 2-2"}));
  reports.clear();
  grid.RemoveItem(4);
  EXPECT_EQ(reports, std::vector<std::string>{}) << "no window knows the last row";
  grid.SetRows(2);
  EXPECT_EQ(reports, (std::vector<std::string>{"before removes 2-2", "removes 2-2"}))
      << "nor the one before it";
}

TEST_F(GridTest, A_listener_that_throws_keeps_no_other_from_learning_of_the_end_of_a_change) {
  const Subscription failing =
      grid.RowsChanging.Subscribe([](const GridChange&) { throw std::runtime_error("no window"); });
  const Subscription failingToo =
      grid.RowsChanged.Subscribe([](const GridChange&) { throw std::runtime_error("no window, too"); });
  Watch();
  try {
    grid.RemoveItem(1);
    ADD_FAILURE() << "the exception reaches who removes the row";
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(), "no window");
  }
  EXPECT_EQ(reports, (std::vector<std::string>{"before removes 1-1", "removes 1-1"}));
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(GridTest, The_current_cell_is_reported_when_it_moves_and_not_the_rows) {
  Watch();
  int moves = 0;
  const Subscription current = grid.CurrentChanged.Subscribe([&] { ++moves; });
  grid.SetCurrent(3, 1);
  grid.SetCurrent(3, 1);
  EXPECT_EQ(moves, 1);
  EXPECT_EQ(reports, std::vector<std::string>{});
  grid.RemoveItem(3);
  EXPECT_EQ(moves, 2) << "the last row was the current one";
}

TEST_F(GridTest, Sorting_orders_rows_and_leaves_the_stripes) {
  grid.SetRowBackColor(1, 0x111111);
  grid.SetRowBackColor(2, 0x222222);
  grid.Sort(1, SortMode::GenericAscending);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(grid.RowBackColor(1), 0x111111U);
  EXPECT_EQ(grid.RowBackColor(2), 0x222222U);
  EXPECT_EQ(grid.SortedCol(), 1);
  grid.AddItem("");
  EXPECT_EQ(grid.SortedCol(), -1);
}

TEST_F(GridTest, Sorting_keeps_the_current_row_current) {
  grid.SetCurrent(1, 2);
  int moves = 0;
  const Subscription current = grid.CurrentChanged.Subscribe([&] { ++moves; });
  grid.Sort(1, SortMode::GenericAscending);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "c");
  EXPECT_EQ(grid.Row(), 3);
  EXPECT_EQ(grid.Col(), 2);
  EXPECT_EQ(moves, 1);
  EXPECT_FALSE(grid.IsSortedDescending());
  grid.Sort(1, SortMode::GenericDescending);
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "b", "a"}));
  EXPECT_TRUE(grid.IsSortedDescending());
  EXPECT_EQ(grid.Row(), 1);
}

TEST_F(GridTest, The_order_of_entry_comes_back_until_another_order_is_kept) {
  grid.SetCurrent(2, 1);
  grid.Sort(1, SortMode::GenericAscending);
  grid.AddItem("");
  grid.SetTextMatrix(4, 1, "0");
  grid.Sort(1, SortMode::GenericAscending);
  EXPECT_EQ(Names(), (std::vector<std::string>{"0", "a", "b", "c"}));
  grid.SortByEntry();
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "a", "b", "0"}));
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "a");
  EXPECT_EQ(grid.SortedCol(), -1);
  grid.RemoveItem(2);
  grid.Sort(1, SortMode::GenericAscending);
  grid.KeepOrder();
  grid.Sort(1, SortMode::GenericDescending);
  grid.SortByEntry();
  EXPECT_EQ(Names(), (std::vector<std::string>{"0", "b", "c"}));
}

TEST_F(GridTest, The_user_types_only_into_editable_cells) {
  EXPECT_TRUE(grid.UserEdit(1, 2, "5"));
  EXPECT_EQ(grid.TextMatrix(1, 2), "5");
  EXPECT_FALSE(grid.UserEdit(1, 1, "x"));
  EXPECT_FALSE(grid.UserEdit(0, 2, "x"));
  EXPECT_FALSE(grid.UserEdit(9, 2, "x"));
  grid.SetLocked(true);
  EXPECT_FALSE(grid.UserEdit(1, 2, "6"));
  EXPECT_EQ(grid.TextMatrix(1, 2), "5");
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "a", "b"}));
}

TEST_F(GridTest, A_refused_edit_changes_nothing_and_a_changed_one_is_stored_as_changed) {
  int stored = 0;
  grid.CellChanged.Always([&] { ++stored; });
  Subscription rule = grid.ValidateEdit.Subscribe([&] { grid.SetEditAccepted(false); });
  EXPECT_FALSE(grid.UserEdit(1, 2, "-1"));
  EXPECT_EQ(grid.TextMatrix(1, 2), "");
  EXPECT_EQ(stored, 0);
  rule = grid.ValidateEdit.Subscribe([&] { grid.SetEditText("12"); });
  EXPECT_TRUE(grid.UserEdit(1, 2, "12abc"));
  EXPECT_EQ(grid.TextMatrix(1, 2), "12");
  EXPECT_EQ(stored, 1);
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.Col(), 2);
}

TEST_F(GridTest, The_user_deletes_the_current_row_unless_a_listener_objects) {
  int gone = 0;
  grid.RowDeleted.Always([&] { ++gone; });
  EXPECT_FALSE(grid.UserDeleteRow()) << "the header is no row to delete";
  grid.UserMoveTo(3, 1);
  {
    const Subscription objection = grid.RowDeleting.Subscribe([&] { grid.SetDeleteAllowed(false); });
    EXPECT_FALSE(grid.UserDeleteRow());
  }
  EXPECT_TRUE(grid.UserDeleteRow());
  EXPECT_EQ(Names(), (std::vector<std::string>{"c", "a"}));
  EXPECT_EQ(gone, 1);
}

TEST_F(GridTest, A_row_that_is_removed_when_it_is_left_does_not_shift_the_target) {
  grid.UserMoveTo(1, 1);
  const Subscription removal = grid.RowChange.Subscribe([&] {
    if (grid.Row() == 1) grid.RemoveItem(1);
  });
  EXPECT_TRUE(grid.UserMoveTo(3, 2));
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "b") << "the cell that was aimed at";
}

TEST_F(GridTest, Clicks_report_their_cells) {
  std::vector<int> columns;
  grid.HeaderClick.Always([&](int col) { columns.push_back(col); });
  int opened = 0;
  grid.DblClick.Always([&] { opened = grid.Row(); });
  EXPECT_TRUE(grid.UserClickHeader(2));
  EXPECT_FALSE(grid.UserClickHeader(3));
  EXPECT_TRUE(grid.UserDoubleClick(2, 1));
  EXPECT_FALSE(grid.UserDoubleClick(0, 1));
  EXPECT_EQ(columns, std::vector<int>{2});
  EXPECT_EQ(opened, 2);
}

}  // namespace
}  // namespace koru
