#include "lines/CountingLines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

class CountingLinesTest : public LinesTest {
 protected:
  void AddAmounts(std::string_view shortage, std::string_view surplus, std::string_view counted) {
    const int row = form.AddLine("1");
    form.Set(row, LineColumn::ShortageAmount, shortage);
    form.Set(row, LineColumn::SurplusAmount, surplus);
    form.Set(row, LineColumn::CountedAmount, counted);
  }
  /// The sums of shortages, surpluses and what was counted, as the boxes show them.
  Texts Sums() {
    return {form.txtTotalBelowValue.Text(), form.txtTotalAboveValue.Text(), form.txtTotalValue.Text()};
  }
};

TEST_F(CountingLinesTest, The_ground_has_its_colour_before_the_first_line) {
  EXPECT_EQ(form.flexDetail.BackColor(), 0xF7F2F0U);
}

TEST_F(CountingLinesTest, The_seventeen_columns_have_their_titles) {
  const Texts titles = {"   رديف",
                        "  کد ميله\u200cاي            ",
                        "كد              ",
                        "نام                                   ",
                        "واحد          ",
                        "شماره واحد      ",
                        "شمارش اول         ",
                        "شمارش دوم         ",
                        "شمارش سوم         ",
                        "شمارش مورد قبول  \u00A0",
                        "موجودي دفتري      ",
                        "كسري       ",
                        "   اضافي   ",
                        "نرخ واحد        ",
                        " مبلغ كسري           ",
                        " مبلغ اضافي          ",
                        " مبلغ موجودي شمارش شده"};
  EXPECT_EQ(form.Row(0), titles);
  for (int col = 0; col < kLineColumns; ++col) EXPECT_EQ(form.flexDetail.IsCentred(col), col > 0) << col;
}

TEST_F(CountingLinesTest, Only_the_counts_and_the_rate_can_be_typed) {
  std::string mask;
  for (int col = 0; col < kLineColumns; ++col) mask += form.flexDetail.IsEditable(col) ? '1' : '0';
  EXPECT_EQ(mask, "00000011110001000");
}

TEST_F(CountingLinesTest, Sums_are_rounded_half_to_even_to_whole_numbers) {
  AddAmounts("12.5", "13.5", "0.5");
  form.lines.UpdateTotalQty();
  EXPECT_EQ(Sums(), (Texts{"12", "14", "0"}));
  AddAmounts("0.25", "0.75", "1");
  form.lines.UpdateTotalQty();
  EXPECT_EQ(Sums(), (Texts{"13", "14", "2"}));
}

TEST_F(CountingLinesTest, An_amount_counts_as_its_leading_number) {
  AddAmounts("7 ريال", "abc", "1.5e2x");
  AddAmounts("", "-3", "  2");
  form.lines.UpdateTotalQty();
  EXPECT_EQ(Sums(), (Texts{"7", "-3", "152"}));
}

TEST_F(CountingLinesTest, Sums_are_those_of_boxes_that_keep_them_as_text_after_every_line) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> magnitude(-4, 18);
  std::uniform_int_distribution<int> digits(-99999999, 99999999);
  for (int round = 0; round < 200; ++round) {
    form.flexDetail.SetRows(1);
    std::string below = "0";
    std::string above = "0";
    std::string counted = "0";
    for (int row = 0; row < 100; ++row) {
      const auto amount = [&] {
        return std::to_string(digits(random)) + "e" +
               std::to_string(round % 2 == 0 ? -2 : magnitude(random) - 8);
      };
      const std::string shortage = amount();
      const std::string surplus = amount();
      const std::string value = amount();
      AddAmounts(shortage, surplus, value);
      below = NumberText(Val(below) + Val(shortage));
      above = NumberText(Val(above) + Val(surplus));
      counted = NumberText(Val(counted) + Val(value));
    }
    form.lines.UpdateTotalQty();
    EXPECT_EQ(Sums(), (Texts{NumberText(Round(Val(below), 0)), NumberText(Round(Val(above), 0)),
                             NumberText(Round(Val(counted), 0))}));
  }
}

TEST_F(CountingLinesTest, A_sum_keeps_no_more_digits_than_its_text) {
  AddAmounts("1000000000000000", "0.1", "");
  for (int i = 0; i < 4; ++i) AddAmounts("1", "0.1", "");
  form.lines.UpdateTotalQty();
  EXPECT_EQ(Sums(), (Texts{"1E+15", "0", "0"})) << "one more than 1E+15 has sixteen digits";
}

TEST_F(CountingLinesTest, Each_sum_changes_once_before_the_eyes) {
  for (int i = 0; i < 50; ++i) AddAmounts("1", "2", "3");
  int changes = 0;
  form.txtTotalBelowValue.StateChanged.Always([&] { ++changes; });
  form.txtTotalAboveValue.StateChanged.Always([&] { ++changes; });
  form.txtTotalValue.StateChanged.Always([&] { ++changes; });
  form.lines.UpdateTotalQty();
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(Sums(), (Texts{"50", "100", "150"}));
}

TEST_F(CountingLinesTest, As_many_lines_as_a_counting_may_have_are_numbered) {
  form.flexDetail.SetRows(1 + kMaxLines);
  form.lines.RefreshRows();
  EXPECT_EQ(form.Cell(1, LineColumn::RowNumber), "1");
  EXPECT_EQ(form.Cell(kMaxLines, LineColumn::RowNumber), "32767");
}

TEST_F(CountingLinesTest, One_line_more_is_an_overflow_that_keeps_what_was_there) {
  form.flexDetail.SetRows(1 + kMaxLines);
  form.AddLine("last");
  form.Set(1, LineColumn::Barcode, "first");
  form.Set(kMaxLines + 1, LineColumn::RowNumber, "as it was");
  try {
    form.lines.RefreshRows();
    FAIL() << "no overflow";
  } catch (const OverflowError& overflow) {
    EXPECT_EQ(std::string(overflow.what()), "تعداد رديفهاي شمارش از 32767 بيشتر است.");
  }
  EXPECT_EQ(form.flexDetail.Rows(), kMaxLines + 2);
  EXPECT_EQ(form.Cell(1, LineColumn::Barcode), "first");
  EXPECT_EQ(form.Cell(kMaxLines, LineColumn::RowNumber), "32767");
  EXPECT_EQ(form.Cell(kMaxLines + 1, LineColumn::RowNumber), "as it was");
  EXPECT_EQ(form.Cell(kMaxLines + 1, LineColumn::Barcode), "last");
}

TEST_F(CountingLinesTest, Lines_are_coloured_in_turn_and_the_current_cell_stays) {
  for (int i = 0; i < 4; ++i) form.AddLine("1");
  form.flexDetail.SetCurrent(2, LineColumn::Rate);
  form.lines.ColorRows();
  EXPECT_EQ(form.flexDetail.BackColor(), 0xF7F2F0U);
  EXPECT_EQ(form.flexDetail.RowBackColor(1), 0xF7F2F0U);
  EXPECT_EQ(form.flexDetail.RowBackColor(2), 0xEEE2DFU);
  EXPECT_EQ(form.flexDetail.RowBackColor(3), 0xF7F2F0U);
  EXPECT_EQ(form.flexDetail.RowBackColor(4), 0xEEE2DFU);
  EXPECT_EQ(form.flexDetail.Row(), 2);
  EXPECT_EQ(form.flexDetail.Col(), LineColumn::Rate);
}

}  // namespace
}  // namespace koru
