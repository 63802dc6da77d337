#include "lines/EntryHistory.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

/// A counting of three lines whose entry has just begun.
class EntryHistoryTest : public LinesTest {
 protected:
  void SetUp() override {
    for (const char* barcode : {"4003", "4001", "4002"}) {
      const int row = form.AddLine(barcode);
      form.Set(row, LineColumn::SystemCounting, "10");
      form.Set(row, LineColumn::Rate, "100");
    }
  }

  bool Type(int row, int col, std::string text) {
    return form.flexDetail.UserEdit(row, col, std::move(text));
  }
  /// Enters figures into the first counts of lines one after another, as a paste does.
  void Paste(int row, const Texts& texts) {
    const BatchEdit batch(form.flexDetail);
    for (const std::string& text : texts) Type(row++, LineColumn::FirstCounting, text);
  }
  /// The texts of a column.
  Texts Column(int col) const {
    Texts texts;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) texts.push_back(form.Cell(row, col));
    return texts;
  }
  /// All cells of all lines but their numbers, and the sums.
  Texts Everything() const {
    Texts texts;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) {
      for (int col = 1; col < kLineColumns; ++col) texts.push_back(form.Cell(row, col));
    }
    for (const TextBox* sum : {&form.txtTotalBelowValue, &form.txtTotalAboveValue, &form.txtTotalValue})
      texts.push_back(sum->Text());
    return texts;
  }

  EntryHistory history{form};
};

TEST_F(EntryHistoryTest, Nothing_can_be_undone_before_a_figure_is_entered) {
  EXPECT_FALSE(history.CanUndo());
  EXPECT_FALSE(history.CanRedo());
  EXPECT_EQ(history.Undo().figures, 0);
  EXPECT_EQ(history.Redo().figures, 0);
}

TEST_F(EntryHistoryTest, A_figure_from_elsewhere_is_not_the_users_to_undo) {
  Type(2, LineColumn::FirstCounting, "5");
  EXPECT_TRUE(form.flexDetail.UserEditElsewhere(3, LineColumn::SecondCounting, "42"));
  EXPECT_EQ(history.Undo().figures, 1);
  EXPECT_EQ(form.Cell(2, LineColumn::FirstCounting), "");
  EXPECT_EQ(form.Cell(3, LineColumn::SecondCounting), "42");
  EXPECT_FALSE(history.CanUndo());
  EXPECT_TRUE(form.flexDetail.UserEditElsewhere(3, LineColumn::SecondCounting, "43"));
  EXPECT_EQ(history.Redo().figures, 1);
  EXPECT_EQ(form.Cell(2, LineColumn::FirstCounting), "5");
}

TEST_F(EntryHistoryTest, A_figure_from_elsewhere_during_the_test_of_one_leaves_both_right) {
  bool isFirst = true;
  const Subscription other = form.flexDetail.ValidateEdit.Subscribe([&] {
    if (std::exchange(isFirst, false)) form.flexDetail.UserEditElsewhere(3, LineColumn::SecondCounting, "42");
  });
  Type(1, LineColumn::FirstCounting, "5");
  EXPECT_EQ(history.Undo().figures, 1);
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "");
  EXPECT_EQ(form.Cell(3, LineColumn::SecondCounting), "42");
}

TEST_F(EntryHistoryTest, A_typed_figure_is_undone_and_redone) {
  Type(2, LineColumn::FirstCounting, "7");
  EXPECT_TRUE(history.CanUndo());
  EXPECT_EQ(history.Undo().figures, 1);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", "", ""}));
  EXPECT_FALSE(history.CanUndo());
  EXPECT_EQ(history.Redo().figures, 1);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", "7", ""}));
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(EntryHistoryTest, Differences_and_sums_follow) {
  form.lines.UpdateTotalQty();
  const Texts before = Everything();
  Type(1, LineColumn::AcceptedCounting, "12");
  const Texts after = Everything();
  EXPECT_EQ(form.Cell(1, LineColumn::Surplus), "2");
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "200");
  history.Undo();
  EXPECT_EQ(Everything(), before);
  history.Redo();
  EXPECT_EQ(Everything(), after);
}

TEST_F(EntryHistoryTest, The_amounts_of_a_stored_line_come_back_as_they_were_stored) {
  form.Set(1, LineColumn::Shortage, "3");
  form.Set(1, LineColumn::AcceptedCounting, "7.50");
  form.lines.UpdateTotalQty();
  const Texts before = Everything();
  Type(1, LineColumn::AcceptedCounting, "");
  Type(1, LineColumn::Rate, "90");
  history.Undo();
  history.Undo();
  EXPECT_EQ(Everything(), before);
}

TEST_F(EntryHistoryTest, Differences_are_derived_anew_when_the_book_stock_has_changed_since) {
  Type(1, LineColumn::AcceptedCounting, "12");
  Type(1, LineColumn::AcceptedCounting, "13");
  form.Set(1, LineColumn::SystemCounting, "20");
  history.Undo();
  EXPECT_EQ(form.Cell(1, LineColumn::Shortage), "8");
  EXPECT_EQ(form.Cell(1, LineColumn::Surplus), "");
}

TEST_F(EntryHistoryTest, Pasted_figures_are_one_step) {
  Type(1, LineColumn::FirstCounting, "1");
  Paste(1, {"5", "6", "7"});
  EXPECT_EQ(history.Undo().figures, 3);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"1", "", ""}));
  EXPECT_EQ(form.flexDetail.Row(), 1);
  history.Redo();
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"5", "6", "7"}));
  EXPECT_EQ(form.flexDetail.Row(), 1);
}

TEST_F(EntryHistoryTest, A_paste_without_figures_is_no_step) {
  Paste(1, {});
  EXPECT_FALSE(history.CanUndo());
}

TEST_F(EntryHistoryTest, A_cell_that_a_paste_fills_twice_comes_back) {
  {
    const BatchEdit batch(form.flexDetail);
    Type(1, LineColumn::FirstCounting, "5");
    Type(1, LineColumn::FirstCounting, "6");
  }
  history.Undo();
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "");
  history.Redo();
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "6");
}

TEST_F(EntryHistoryTest, What_the_form_refuses_is_no_step) {
  EXPECT_FALSE(Type(1, LineColumn::FirstCounting, "-1"));
  EXPECT_FALSE(history.CanUndo());
}

TEST_F(EntryHistoryTest, The_same_figure_again_is_no_step) {
  Type(1, LineColumn::FirstCounting, "5");
  Type(1, LineColumn::FirstCounting, "5");
  history.Undo();
  EXPECT_FALSE(history.CanUndo());
}

TEST_F(EntryHistoryTest, A_figure_comes_back_to_its_line_wherever_that_is_sorted) {
  Type(1, LineColumn::FirstCounting, "5");  // of 4003
  form.flexDetail.UserClickHeader(LineColumn::Barcode);
  ASSERT_EQ(Column(LineColumn::Barcode), (Texts{"4001", "4002", "4003"}));
  EXPECT_EQ(history.Undo().figures, 1);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", "", ""}));
  EXPECT_EQ(form.flexDetail.Row(), 3);
}

TEST_F(EntryHistoryTest, Lines_with_the_same_barcode_are_distinguished) {
  form.Set(2, LineColumn::Barcode, "4003");
  Type(2, LineColumn::FirstCounting, "5");
  form.flexDetail.UserSort({LineColumn::Barcode, RowOrder::Descending});
  form.flexDetail.UserSort({LineColumn::FirstCounting, RowOrder::Descending});
  ASSERT_EQ(Column(LineColumn::FirstCounting), (Texts{"5", "", ""}));
  history.Undo();
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", "", ""}));
}

TEST_F(EntryHistoryTest, A_step_of_a_deleted_line_is_skipped_and_counted) {
  Type(2, LineColumn::FirstCounting, "5");
  Type(1, LineColumn::FirstCounting, "4");
  form.flexDetail.RemoveItem(1);
  const auto result = history.Undo();
  EXPECT_EQ(result.skipped, 1);
  EXPECT_EQ(result.figures, 1);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", ""}));
  EXPECT_FALSE(history.CanUndo());
  history.Redo();
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(EntryHistoryTest, The_good_of_a_deleted_line_that_is_added_again_has_another_line) {
  Type(3, LineColumn::FirstCounting, "5");
  form.flexDetail.RemoveItem(3);
  form.AddLine("4002");
  form.Set(3, LineColumn::FirstCounting, "5");
  const auto result = history.Undo();
  EXPECT_EQ(result.skipped, 1);
  EXPECT_EQ(result.figures, 0);
  EXPECT_EQ(form.Cell(3, LineColumn::FirstCounting), "5");
}

TEST_F(EntryHistoryTest, The_other_lines_of_a_paste_are_undone_when_one_is_deleted) {
  Paste(1, {"5", "6", "7"});
  form.flexDetail.RemoveItem(2);
  const auto result = history.Undo();
  EXPECT_EQ(result.figures, 2);
  EXPECT_EQ(result.gone, 1);
  EXPECT_EQ(result.skipped, 0);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", ""}));
}

TEST_F(EntryHistoryTest, A_rate_that_was_calculated_since_stays) {
  Type(1, LineColumn::Rate, "90");
  form.Set(1, LineColumn::Rate, "120");
  const auto result = history.Undo();
  EXPECT_EQ(result.kept, 1);
  EXPECT_EQ(result.figures, 0);
  EXPECT_EQ(form.Cell(1, LineColumn::Rate), "120");
}

TEST_F(EntryHistoryTest, A_figure_that_the_form_refuses_stays_away) {
  form.Set(1, LineColumn::FirstCounting, "-2");  // as another program may have stored it
  Type(1, LineColumn::FirstCounting, "2");
  EXPECT_EQ(history.Undo().kept, 1);
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "2");
  EXPECT_EQ(NewTitledMessages(), Texts{"خطا: تعداد كمتر از اندازة مجاز است."});
}

TEST_F(EntryHistoryTest, A_new_figure_ends_what_could_be_redone) {
  Type(1, LineColumn::FirstCounting, "5");
  history.Undo();
  Type(2, LineColumn::FirstCounting, "6");
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(EntryHistoryTest, A_cleared_history_has_no_steps) {
  Type(1, LineColumn::FirstCounting, "5");
  Type(1, LineColumn::FirstCounting, "6");
  history.Undo();
  history.Clear();
  EXPECT_FALSE(history.CanUndo());
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(EntryHistoryTest, Whoever_shows_the_commands_hears_of_each_change) {
  int changes = 0;
  const Subscription listening = history.Changed.Subscribe([&] { ++changes; });
  Type(1, LineColumn::FirstCounting, "5");
  EXPECT_EQ(changes, 1);
  history.Undo();
  EXPECT_EQ(changes, 2);
  history.Clear();
  EXPECT_EQ(changes, 3);
  history.Clear();
  EXPECT_EQ(changes, 3);
}

TEST_F(EntryHistoryTest, Leaving_an_empty_row_does_not_shift_the_figures) {
  Paste(2, {"6", "7"});
  form.AddLine("");
  form.flexDetail.UserMoveTo(4, LineColumn::FirstCounting);
  form.Set(1, LineColumn::Barcode, "");
  form.flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  EXPECT_EQ(history.Undo().figures, 2);
  EXPECT_EQ(Column(LineColumn::FirstCounting), (Texts{"", "", ""}));
  EXPECT_EQ(Column(LineColumn::Barcode), (Texts{"4001", "4002", ""}));
}

}  // namespace
}  // namespace koru
