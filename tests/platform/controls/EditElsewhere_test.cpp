// A text that is entered into a grid from elsewhere, while its user works there.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/controls/Button.h"
#include "platform/controls/Grid.h"
#include "tests/support/FakeScreen.h"

namespace koru {
namespace {

class EditElsewhere : public testing::Test {
 protected:
  EditElsewhere() {
    grid.SetCols(4);
    grid.SetEditMask("0011");
    for (const char* name : {"a", "b", "c", "d"}) {
      grid.AddItem(std::to_string(grid.Rows()));
      grid.SetTextMatrix(grid.Rows() - 1, 1, name);
    }
    grid.UserMoveTo(2, 3);
    grid.ValidateEdit.Always([this] { seen.push_back("validates " + Cell() + " " + grid.EditText()); });
    grid.CellChanged.Always([this] { seen.push_back("changed " + Cell()); });
    grid.RowChange.Always([this] { seen.emplace_back("row change"); });
    grid.CurrentChanged.Always([this] { seen.emplace_back("current changed"); });
    form.FocusChanged.Always([this] { seen.emplace_back("focus changed"); });
  }

  [[nodiscard]] std::string Cell() const {
    return std::to_string(grid.Row()) + "," + std::to_string(grid.Col());
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int row = 1; row < grid.Rows(); ++row) names.emplace_back(grid.TextMatrix(row, 1));
    return names;
  }

  test::FakeScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  Button other{form, "cmdOther"};
  std::vector<std::string> seen;
};

TEST_F(EditElsewhere, Passes_the_forms_acceptance_in_its_own_cell_and_moves_nothing) {
  form.SetFocus(other);
  seen.clear();
  EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "12"));
  EXPECT_EQ(grid.TextMatrix(4, 2), "12");
  EXPECT_EQ(seen, (std::vector<std::string>{"validates 4,2 12", "changed 4,2"}));
  EXPECT_EQ(Cell(), "2,3");
  EXPECT_EQ(form.Focus(), &other);
}

TEST_F(EditElsewhere, Is_changed_and_refused_as_what_the_user_types) {
  grid.ValidateEdit.Always([this] {
    grid.SetEditAccepted(grid.EditText() != "-1");
    grid.SetEditText(grid.EditText() + ".0");
  });
  EXPECT_FALSE(grid.UserEditElsewhere(4, 2, "-1"));
  EXPECT_EQ(grid.TextMatrix(4, 2), "");
  EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "1"));
  EXPECT_EQ(grid.TextMatrix(4, 2), "1.0");
  EXPECT_TRUE(grid.UserEditElsewhere(2, 2, "2")) << "in the current row";
  EXPECT_TRUE(grid.UserEditElsewhere(2, 3, "3")) << "in the current cell";
  EXPECT_EQ(grid.TextMatrix(2, 2), "2.0");
  EXPECT_EQ(grid.TextMatrix(2, 3), "3.0");
  EXPECT_EQ(Cell(), "2,3");
}

TEST_F(EditElsewhere, Is_refused_where_the_user_cannot_type) {
  EXPECT_FALSE(grid.UserEditElsewhere(1, 1, "x")) << "a column that is not edited";
  EXPECT_FALSE(grid.UserEditElsewhere(0, 2, "x"));
  EXPECT_FALSE(grid.UserEditElsewhere(5, 2, "x"));
  EXPECT_FALSE(grid.UserEditElsewhere(1, 4, "x"));
  grid.SetLocked(true);
  EXPECT_FALSE(grid.UserEditElsewhere(1, 2, "x"));
  grid.SetLocked(false);
  grid.SetEnabled(false);
  EXPECT_FALSE(grid.UserEditElsewhere(1, 2, "x"));
  EXPECT_TRUE(seen.empty());
}

TEST_F(EditElsewhere, While_the_user_is_asked_about_a_row_leaves_the_question_about_that_row) {
  grid.RowDeleting.Always([this] {
    grid.SetDeleteAllowed(false);  // the question is open
    EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "42"));
    grid.SetDeleteAllowed(true);
  });
  EXPECT_TRUE(grid.UserDeleteRow());
  EXPECT_EQ(Names(), (std::vector<std::string>{"a", "c", "d"}));
  EXPECT_EQ(grid.TextMatrix(3, 2), "42");
}

TEST_F(EditElsewhere, While_the_users_own_edit_is_tested_leaves_its_text_its_cell_and_its_refusal) {
  bool outside = false;
  const Subscription warning = grid.ValidateEdit.Subscribe([&] {
    if (std::exchange(outside, true)) return;
    grid.SetEditText("user's");
    grid.SetEditAccepted(true);
    EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "42"));
    EXPECT_EQ(grid.EditText(), "user's");
  });
  EXPECT_TRUE(grid.UserEdit(2, 3, "7"));
  EXPECT_EQ(grid.TextMatrix(2, 3), "user's");
  EXPECT_EQ(grid.TextMatrix(4, 2), "42");

  outside = false;
  const Subscription refusal = grid.ValidateEdit.Subscribe([&] {
    if (grid.Row() == 2) grid.SetEditAccepted(false);
  });
  EXPECT_FALSE(grid.UserEdit(2, 3, "8")) << "accepted outside, refused here";
}

TEST_F(EditElsewhere, Is_no_part_of_the_users_batch) {
  const BatchEdit batch(grid);
  bool inBatch = true;
  const Subscription listener = grid.CellChanged.Subscribe([&] { inBatch = grid.InBatchEdit(); });
  EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "42"));
  EXPECT_FALSE(inBatch);
  EXPECT_TRUE(grid.InBatchEdit());
}

TEST_F(EditElsewhere, Restores_everything_when_a_listener_throws) {
  grid.SetEditText("typed");
  const Subscription failing = grid.CellChanged.Subscribe([] { throw std::runtime_error("no disk"); });
  EXPECT_THROW(grid.UserEditElsewhere(4, 2, "42"), std::runtime_error);
  EXPECT_EQ(Cell(), "2,3");
  EXPECT_EQ(grid.EditText(), "typed");
  std::string failure;
  form.OnFailure = [&](const std::exception& what) { failure = what.what(); };
  EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "43")) << "stored, and what depends on it is reported";
  EXPECT_EQ(failure, "no disk");
  EXPECT_EQ(Cell(), "2,3");
}

TEST_F(EditElsewhere, Keeps_the_users_row_current_when_a_listener_removes_or_sorts_rows) {
  {
    const Subscription removal = grid.CellChanged.Subscribe([this] { grid.RemoveItem(1); });
    EXPECT_TRUE(grid.UserEditElsewhere(4, 2, "42"));
  }
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "b");
  const Subscription sort =
      grid.CellChanged.Subscribe([this] { grid.Sort(1, SortMode::TextNoCaseDescending); });
  EXPECT_TRUE(grid.UserEditElsewhere(3, 2, "43"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"d", "c", "b"}));
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "b");
}

TEST_F(EditElsewhere, Rows_keep_their_numbers_when_they_move_and_give_them_to_no_other) {
  const std::uint32_t b = grid.RowID(2);
  grid.Sort(1, SortMode::TextNoCaseDescending);
  EXPECT_EQ(grid.RowID(3), b);
  grid.KeepOrder();
  EXPECT_EQ(grid.RowID(3), b);
  grid.RemoveItem(1);
  EXPECT_EQ(grid.RowID(2), b);
  std::vector<std::uint32_t> all;
  for (int row = 1; row < grid.Rows(); ++row) all.push_back(grid.RowID(row));
  grid.SetRows(1);
  grid.AddItem("1");
  for (const std::uint32_t id : all) EXPECT_NE(grid.RowID(1), id);
}

}  // namespace
}  // namespace koru
