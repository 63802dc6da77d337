#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/Numbers.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

constexpr int kCounts[] = {LineColumn::FirstCounting, LineColumn::SecondCounting, LineColumn::ThirdCounting,
                           LineColumn::AcceptedCounting};
constexpr const char* kTooMany = "خطا: تعداد بيشتر از اندازة مجاز است.";
constexpr const char* kTooFew = "خطا: تعداد كمتر از اندازة مجاز است.";
constexpr const char* kTooDear = "خطا: مبلغ بيشتر از اندازة مجاز است.";
constexpr const char* kTooCheap = "خطا: مبلغ كمتر از اندازة مجاز است.";
constexpr const char* kDeleteQuestion = "حذف كالا از شمارش: آيا مطمئن هستيد؟";

class LineEditingTest : public LinesTest {
 protected:
  void SetUp() override { form.AddLine("4001"); }

  /// Types a text over a cell of the first line; answers what the cell then holds.
  std::string Type(int col, std::string text) {
    form.flexDetail.UserEdit(1, col, std::move(text));
    return form.Cell(1, col);
  }
  /// A line with an accepted count, a book stock and a rate, calculated; answers its row.
  int Calculated(std::string_view accepted, std::string_view system, std::string_view rate) {
    const int row = form.AddLine("4002");
    form.Set(row, LineColumn::AcceptedCounting, accepted);
    form.Set(row, LineColumn::SystemCounting, system);
    form.Set(row, LineColumn::Rate, rate);
    form.editing.CalculateRow(row);
    return row;
  }
  /// Shortage, surplus, their amounts, and the amount that was counted.
  Texts Results(int row) const {
    return {form.Cell(row, LineColumn::Shortage), form.Cell(row, LineColumn::Surplus),
            form.Cell(row, LineColumn::ShortageAmount), form.Cell(row, LineColumn::SurplusAmount),
            form.Cell(row, LineColumn::CountedAmount)};
  }
};

TEST_F(LineEditingTest, A_count_of_a_thousand_million_is_accepted_without_a_message) {
  for (const int col : kCounts) EXPECT_EQ(Type(col, "1000000000"), "1000000000");
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(LineEditingTest, A_larger_count_is_warned_of_and_accepted_all_the_same) {
  for (const int col : kCounts) {
    EXPECT_EQ(Type(col, "1000000001"), "1000000001");
    EXPECT_EQ(NewTitledMessages(), Texts{kTooMany});
  }
}

TEST_F(LineEditingTest, A_negative_count_is_rejected_with_a_message) {
  for (const int col : kCounts) {
    form.Set(1, col, "5");
    EXPECT_EQ(Type(col, "-1"), "5");
    EXPECT_EQ(NewTitledMessages(), Texts{kTooFew});
  }
}

TEST_F(LineEditingTest, A_rate_out_of_range_is_called_an_amount) {
  EXPECT_EQ(Type(LineColumn::Rate, "1000000000"), "1000000000");
  EXPECT_EQ(NewTitledMessages(), Texts{});
  EXPECT_EQ(Type(LineColumn::Rate, "1000000000.5"), "1000000000.5");
  EXPECT_EQ(NewTitledMessages(), Texts{kTooDear});
  EXPECT_EQ(Type(LineColumn::Rate, "-0.5"), "1000000000.5");
  EXPECT_EQ(NewTitledMessages(), Texts{kTooCheap});
}

TEST_F(LineEditingTest, A_rejected_count_changes_no_amount) {
  form.Set(1, LineColumn::CountedAmount, "as it was");
  Type(LineColumn::AcceptedCounting, "-1");
  EXPECT_EQ(form.Cell(1, LineColumn::CountedAmount), "as it was");
  EXPECT_EQ(form.txtTotalValue.Text(), "");
}

TEST_F(LineEditingTest, What_is_typed_becomes_its_leading_number) {
  const std::pair<const char*, const char*> typed[] = {
      {"12abc", "12"},   {"007", "7"},    {"abc", "0"},      {"  8.50 ", "8.5"},   {".5", "0.5"},
      {"+3", "3"},       {"1e3", "1000"}, {"1.2.3", "1.2"},  {"-0", "0"},          {"1E+15", "1E+15"},
      {"&HFF", "0"},     {"0x10", "0"},   {"infinity", "0"}, {"nan", "0"},         {"1,234.5", "1"},
      {"0.1000", "0.1"}, {"5 6", "5"},    {"\t9", "9"},      {"1000 ريال", "1000"}};
  for (const auto& [text, number] : typed) EXPECT_EQ(Type(LineColumn::FirstCounting, text), number) << text;
}

TEST_F(LineEditingTest, A_cleared_count_stays_empty_and_counts_as_nothing) {
  form.Set(1, LineColumn::SystemCounting, "4");
  form.Set(1, LineColumn::Rate, "10");
  Type(LineColumn::AcceptedCounting, "6");
  EXPECT_EQ(Type(LineColumn::AcceptedCounting, ""), "");
  EXPECT_EQ(Results(1), (Texts{"4", "", "40", "", "60"})) << "the counted amount keeps its text";
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(LineEditingTest, A_shortage_is_calculated_with_its_amount) {
  EXPECT_EQ(Results(Calculated("10", "12.5", "3")), (Texts{"2.5", "", "7.5", "", "30"}));
}

TEST_F(LineEditingTest, A_surplus_is_calculated_with_its_amount) {
  EXPECT_EQ(Results(Calculated("12.5", "10", "3")), (Texts{"", "2.5", "", "7.5", "37.5"}));
}

TEST_F(LineEditingTest, An_accepted_count_equal_to_the_book_stock_clears_shortage_and_surplus) {
  const int row = Calculated("10", "12.5", "3");
  form.Set(row, LineColumn::Surplus, "1");
  form.Set(row, LineColumn::SurplusAmount, "3");
  form.Set(row, LineColumn::AcceptedCounting, "12.5");
  form.editing.CalculateRow(row);
  EXPECT_EQ(Results(row), (Texts{"", "", "", "", "37.5"}));
}

TEST_F(LineEditingTest, Differences_are_rounded_half_to_even_at_three_decimals) {
  EXPECT_EQ(Results(Calculated("1.0005", "1", "1"))[1], "0") << "half to the even 0.000";
  EXPECT_EQ(Results(Calculated("0.0015", "0", "1"))[1], "0.002");
  EXPECT_EQ(Results(Calculated("0.0025", "0", "1"))[1], "0.002");
  EXPECT_EQ(Results(Calculated("0", "0.0035", "1"))[0], "0.004");
  EXPECT_EQ(Results(Calculated("0", "2.0045", "1"))[0], "2.004");
  EXPECT_EQ(Results(Calculated("0", "2.00451", "1"))[0], "2.005");
  EXPECT_EQ(Results(Calculated("0.3", "0.1", "1"))[1], "0.2");
}

TEST_F(LineEditingTest, Amounts_are_not_rounded) {
  EXPECT_EQ(Results(Calculated("0.3333", "0", "1.5")), (Texts{"", "0.333", "", "0.4995", "0.49995"}));
}

TEST_F(LineEditingTest, Blanks_are_no_accepted_count) {
  const int row = Calculated("  ", "2", "5");
  EXPECT_EQ(Results(row), (Texts{"2", "", "10", "", ""}));
}

TEST_F(LineEditingTest, An_edited_accepted_count_or_rate_recalculates_its_line_and_the_sums) {
  form.Set(1, LineColumn::SystemCounting, "2");
  Type(LineColumn::Rate, "10");
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "20");
  Type(LineColumn::AcceptedCounting, "5");
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "30");
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "0");
  EXPECT_EQ(form.txtTotalValue.Text(), "50");
}

TEST_F(LineEditingTest, The_first_three_counts_recalculate_nothing) {
  form.Set(1, LineColumn::SystemCounting, "2");
  form.Set(1, LineColumn::Rate, "10");
  for (const int col : {LineColumn::FirstCounting, LineColumn::SecondCounting, LineColumn::ThirdCounting}) {
    EXPECT_EQ(Type(col, "7"), "7");
  }
  EXPECT_EQ(Results(1), Texts(5));
  EXPECT_EQ(form.txtTotalValue.Text(), "");
}

TEST_F(LineEditingTest, Other_columns_cannot_be_typed_into) {
  for (const int col : {LineColumn::Barcode, LineColumn::UnitName, LineColumn::SystemCounting,
                        LineColumn::Shortage, LineColumn::CountedAmount}) {
    EXPECT_FALSE(form.flexDetail.UserEdit(1, col, "-1"));
  }
  EXPECT_EQ(form.Cell(1, LineColumn::Barcode), "4001");
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(LineEditingTest, Deleting_a_line_asks_first_and_yes_deletes_it) {
  for (const DocumentMode mode : {DocumentMode::Editing, DocumentMode::New}) {
    form.flexDetail.SetRows(1);
    shared.DocMode = mode;
    for (const char* barcode : {"1", "2", "3"})
      form.Set(form.AddLine(barcode), LineColumn::CountedAmount, "5");
    form.lines.ColorRows();
    form.flexDetail.SetCurrent(2, LineColumn::Barcode);
    messages.WillAnswer(Answers::Yes);
    EXPECT_TRUE(form.flexDetail.UserDeleteRow());
    EXPECT_EQ(NewTitledMessages(), Texts{kDeleteQuestion});
    EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"1", "3"}));
    EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2"}));
    EXPECT_EQ(form.txtTotalValue.Text(), "10");
    EXPECT_EQ(form.flexDetail.RowBackColor(2), CountingLines::kEvenRowColor);
  }
}

TEST_F(LineEditingTest, No_and_a_closed_question_keep_the_line) {
  form.flexDetail.SetCurrent(1, LineColumn::Barcode);
  for (const auto answer : {Answers::No, Answers::None}) {
    messages.WillAnswer(answer);
    EXPECT_FALSE(form.flexDetail.UserDeleteRow());
    EXPECT_EQ(NewTitledMessages(), Texts{kDeleteQuestion});
    EXPECT_EQ(form.flexDetail.Rows(), 2);
  }
}

TEST_F(LineEditingTest, A_line_of_a_counting_that_is_only_viewed_is_not_deleted_and_nothing_is_asked) {
  form.flexDetail.SetCurrent(1, LineColumn::Barcode);
  for (const DocumentMode mode : {DocumentMode::Viewing, DocumentMode::Empty}) {
    shared.DocMode = mode;
    messages.WillAnswer(Answers::Yes);
    EXPECT_FALSE(form.flexDetail.UserDeleteRow());
    EXPECT_EQ(NewTitledMessages(), Texts{});
    EXPECT_EQ(form.flexDetail.Rows(), 2);
  }
}

TEST_F(LineEditingTest, An_empty_line_is_deleted_without_a_question_in_every_mode) {
  for (const DocumentMode mode :
       {DocumentMode::Viewing, DocumentMode::Editing, DocumentMode::New, DocumentMode::Empty}) {
    shared.DocMode = mode;
    form.flexDetail.SetCurrent(form.AddLine(""), LineColumn::Barcode);
    EXPECT_TRUE(form.flexDetail.UserDeleteRow());
    EXPECT_EQ(NewTitledMessages(), Texts{});
    EXPECT_EQ(form.flexDetail.Rows(), 2);
  }
}

TEST_F(LineEditingTest, An_empty_line_is_removed_when_the_user_moves_to_another) {
  form.AddLine("");
  form.AddLine("4003");
  form.flexDetail.SetCurrent(2, LineColumn::Barcode);
  form.flexDetail.UserMoveTo(3, LineColumn::FirstCounting);
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"4001", "4003"}));
  EXPECT_EQ(form.flexDetail.Row(), 2) << "on the line that the user moved to";
}

TEST_F(LineEditingTest, What_is_typed_after_an_empty_line_is_kept_when_that_line_is_removed) {
  form.AddLine("");
  form.AddLine("4003");
  form.flexDetail.SetCurrent(2, LineColumn::Barcode);
  EXPECT_TRUE(form.flexDetail.UserEdit(3, LineColumn::FirstCounting, "11"));
  EXPECT_EQ(form.Column(LineColumn::FirstCounting), (Texts{"", "11"}));
}

TEST_F(LineEditingTest, Numbers_pasted_as_a_batch_are_summed_once_after_the_last) {
  form.AddLine("4002");
  for (int row = 1; row <= 2; ++row) form.flexDetail.SetTextMatrix(row, LineColumn::Rate, "2");
  Texts sums;
  form.txtTotalValue.SetText("before");
  {
    const BatchEdit block(form.flexDetail);
    for (int row = 1; row <= 2; ++row) {
      EXPECT_TRUE(form.flexDetail.UserEdit(row, LineColumn::AcceptedCounting, "5"));
      sums.push_back(form.txtTotalValue.Text());
    }
  }
  EXPECT_EQ(sums, (Texts{"before", "before"}));
  EXPECT_EQ(form.txtTotalValue.Text(), "20");
  EXPECT_EQ(form.Column(LineColumn::CountedAmount), (Texts{"10", "10"}));
}

TEST_F(LineEditingTest, A_block_of_figures_that_are_too_large_or_below_zero_is_reported_once) {
  for (int i = 0; i < 60; ++i) form.AddLine("5" + std::to_string(i));
  const auto paste = [this](const char* figure) {
    const BatchEdit block(form.flexDetail);
    for (int row = 1; row < form.flexDetail.Rows(); ++row) {
      static_cast<void>(form.flexDetail.UserEdit(row, LineColumn::FirstCounting, figure));
    }
  };
  paste("1000000001");
  EXPECT_EQ(NewTitledMessages(), Texts{kTooMany});
  EXPECT_EQ(form.Cell(60, LineColumn::FirstCounting), "1000000001");
  paste("-1");
  EXPECT_EQ(NewTitledMessages(), Texts{kTooFew});
  EXPECT_EQ(form.Cell(60, LineColumn::FirstCounting), "1000000001");
  paste("1000000002");
  EXPECT_EQ(NewTitledMessages(), Texts{kTooMany}) << "the next block is reported again";
}

TEST_F(LineEditingTest, The_menu_of_a_title_sorts_downwards_and_brings_the_order_of_entry_back) {
  form.flexDetail.SetRows(1);
  for (const char* barcode : {"b2", "10", "A1"}) form.AddLine(barcode);
  EXPECT_TRUE(form.flexDetail.UserSort({LineColumn::Barcode, RowOrder::Descending}));
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"b2", "A1", "10"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2", "3"}));
  EXPECT_TRUE(form.flexDetail.UserSort({LineColumn::Barcode, RowOrder::Ascending}));
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"10", "A1", "b2"}));
  EXPECT_TRUE(form.flexDetail.UserSort({LineColumn::GoodName, RowOrder::Entry}));
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"b2", "10", "A1"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2", "3"}));
}

TEST_F(LineEditingTest, Numbers_sums_and_stripes_follow_the_removal_of_an_empty_line) {
  form.AddLine("");
  form.AddLine("4003");
  for (int row = 1; row <= 3; ++row) {
    form.flexDetail.SetTextMatrix(row, LineColumn::CountedAmount, std::to_string(row * 5));
  }
  form.flexDetail.SetCurrent(2, LineColumn::Barcode);
  form.flexDetail.UserLeave();
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2"}));
  EXPECT_EQ(form.txtTotalValue.Text(), "20");
  EXPECT_EQ(form.flexDetail.RowBackColor(2), 0xEEE2DFU);
}

TEST_F(LineEditingTest, An_empty_line_is_removed_when_the_user_leaves_the_grid) {
  form.flexDetail.SetCurrent(form.AddLine(""), LineColumn::Barcode);
  form.flexDetail.UserLeave();
  EXPECT_EQ(form.Column(LineColumn::Barcode), Texts{"4001"});
}

TEST_F(LineEditingTest, A_line_with_a_barcode_stays_when_the_user_moves_on) {
  form.AddLine(" ");
  form.flexDetail.SetCurrent(2, LineColumn::Barcode);
  form.flexDetail.UserMoveTo(1, LineColumn::Barcode);
  form.flexDetail.UserLeave();
  EXPECT_EQ(form.flexDetail.Rows(), 3);
}

TEST_F(LineEditingTest, A_grid_with_its_header_alone_is_left_as_it_is) {
  form.flexDetail.SetRows(1);
  form.flexDetail.UserLeave();
  form.flexDetail.UserClickHeader(LineColumn::Barcode);
  EXPECT_EQ(form.flexDetail.Rows(), 1);
}

TEST_F(LineEditingTest, An_empty_line_stays_while_removal_is_suspended) {
  form.editing.SuspendEmptyRowRemoval(true);
  form.flexDetail.SetCurrent(form.AddLine(""), LineColumn::Barcode);
  form.flexDetail.UserMoveTo(1, LineColumn::Barcode);
  form.flexDetail.UserMoveTo(2, LineColumn::Barcode);
  form.flexDetail.UserLeave();
  EXPECT_EQ(form.flexDetail.Rows(), 3);
  form.editing.SuspendEmptyRowRemoval(false);
  form.flexDetail.UserLeave();
  EXPECT_EQ(form.flexDetail.Rows(), 2);
}

TEST_F(LineEditingTest,
       Clicking_the_barcode_title_sorts_barcodes_as_text_in_any_case_and_numbers_the_lines_anew) {
  form.flexDetail.SetRows(1);
  for (const char* barcode : {"b2", "10", "A1", "9", "a10", "B1", "a1"}) form.AddLine(barcode);
  form.lines.RefreshRows();
  EXPECT_TRUE(form.flexDetail.UserClickHeader(LineColumn::Barcode));
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"10", "9", "A1", "a1", "a10", "B1", "b2"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2", "3", "4", "5", "6", "7"}));
  EXPECT_EQ(form.flexDetail.Col(), LineColumn::Barcode);
}

TEST_F(LineEditingTest, Another_title_sorts_numbers_as_numbers_before_texts_in_the_order_of_the_alphabet) {
  form.flexDetail.SetRows(1);
  for (const char* code : {"گچ", "10", "abc", "پ", "-1", "آب", "9", "ب", "Abd", "2.5", "كاغذ", "12x"}) {
    form.Set(form.AddLine("1"), LineColumn::GoodCode, code);
  }
  EXPECT_TRUE(form.flexDetail.UserClickHeader(LineColumn::GoodCode));
  EXPECT_EQ(form.Column(LineColumn::GoodCode),
            (Texts{"-1", "2.5", "9", "10", "12x", "abc", "Abd", "آب", "ب", "پ", "كاغذ", "گچ"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber).back(), "12");
}

TEST_F(LineEditingTest, Sorting_keeps_each_line_together) {
  form.flexDetail.SetRows(1);
  std::mt19937 random(20);
  std::uniform_int_distribution<int> count(0, 300);
  for (int i = 0; i < 500; ++i) {
    const std::string text = std::to_string(count(random));
    const int row = form.AddLine("B" + text);
    form.Set(row, LineColumn::AcceptedCounting, text);
  }
  form.flexDetail.UserClickHeader(LineColumn::AcceptedCounting);
  double before = 0;
  for (int row = 1; row < form.flexDetail.Rows(); ++row) {
    const std::string count = form.Cell(row, LineColumn::AcceptedCounting);
    EXPECT_EQ(form.Cell(row, LineColumn::Barcode), "B" + count);
    EXPECT_EQ(form.Cell(row, LineColumn::RowNumber), std::to_string(row));
    EXPECT_LE(before, Val(count));
    before = Val(count);
  }
}

}  // namespace
}  // namespace koru
