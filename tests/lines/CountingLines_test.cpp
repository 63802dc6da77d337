#include "lines/CountingLines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

using Texts = std::vector<std::string>;

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
  void MakeGoods() {
    Execute("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (7,'كارتن',1)");
    Execute("insert into tblGood (Barcode,Code,Name) values ('A1','G1','گچ')");
    Execute("insert into tblGood (Barcode,Code,Name) values ('A2',NULL,'كاغذ')");
  }
};

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

TEST_F(CountingLinesTest, A_counting_without_lines_shows_its_header_row_and_sums_of_zero) {
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.flexDetail.Rows(), 1);
  EXPECT_EQ(Sums(), (Texts{"0", "0", "0"}));
}

TEST_F(CountingLinesTest, A_line_is_shown_with_all_that_was_stored_and_what_follows_from_it) {
  MakeGoods();
  Execute(
      "insert into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
      "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) "
      "values (5,'A1',2,7,1,2.25,3,10,12.5,-2.5,3.4)");
  Execute(
      "insert into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,AcceptedCounting,"
      "SystemCounting,ContradictionCounting,BaseValue) values (5,'A2',1,NULL,0,9,8,1,100)");
  form.lines.FillInvCounterDetailData(5);
  ASSERT_EQ(form.flexDetail.Rows(), 3);
  EXPECT_EQ(form.Row(1), (Texts{"1", "A2", "", "كاغذ", "", "-1", "0", "", "", "9", "8", "", "1", "100", "",
                                "100", "900"}));
  EXPECT_EQ(form.Row(2), (Texts{"2", "A1", "G1", "گچ", "كارتن", "7", "1", "2.25", "3", "10", "12.5", "2.5",
                                "", "3", "7.5", "", "30"}));
  EXPECT_EQ(Sums(), (Texts{"8", "100", "930"}));
}

TEST_F(CountingLinesTest, A_line_without_a_unit_shows_an_empty_name_and_minus_one) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Cell(1, LineColumn::UnitName), "");
  EXPECT_EQ(form.Cell(1, LineColumn::ScaleID), "-1");
}

TEST_F(CountingLinesTest, Nothing_stored_gives_empty_cells_and_no_amounts) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Row(1),
            (Texts{"1", "A1", "G1", "گچ", "", "-1", "", "", "", "", "", "", "", "0", "", "", ""}));
}

TEST_F(CountingLinesTest, A_difference_of_zero_is_neither_shortage_nor_surplus) {
  MakeGoods();
  Execute(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ContradictionCounting,BaseValue) "
      "values (5,'A1',1,0,4)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Cell(1, LineColumn::Shortage), "");
  EXPECT_EQ(form.Cell(1, LineColumn::Surplus), "");
  EXPECT_EQ(form.Cell(1, LineColumn::ShortageAmount), "");
}

TEST_F(CountingLinesTest, A_line_whose_good_was_deleted_is_not_shown) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'gone',2)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A2',3)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"A1", "A2"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2"}));
}

TEST_F(CountingLinesTest, The_lines_of_the_counting_before_and_of_others_are_not_shown) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (6,'A2',1)");
  form.lines.FillInvCounterDetailData(5);
  form.lines.FillInvCounterDetailData(6);
  EXPECT_EQ(form.Column(LineColumn::Barcode), Texts{"A2"});
}

TEST_F(CountingLinesTest, Lines_are_read_with_one_statement) {
  form.lines.FillInvCounterDetailData(-5);
  EXPECT_EQ(
      Sent(),
      Texts{
          "select round(isnull(BaseValue,0),0) as Value, tblGood.barcode,FirstCounting,SecondCounting,"
          "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,isnull(ScaleID,-1) as ScaleID,"
          "isnull(tblGoodScale.Name,'') as UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as "
          "GoodName from tblInventoryCountingDetail Inner Join tblGood on "
          "tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On "
          "ScaleID=tblGoodScale.ID where CountingID =-5 Order By RowNumber"});
}

TEST_F(CountingLinesTest, A_failure_of_the_database_leaves_no_lines_of_another_counting) {
  form.AddLine("1");
  FailAt(1);
  EXPECT_THROW(form.lines.FillInvCounterDetailData(5), DatabaseError);
  EXPECT_EQ(form.flexDetail.Rows(), 1);
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
  form.txtTotalBelowValue.Changed.Always([&] { ++changes; });
  form.txtTotalAboveValue.Changed.Always([&] { ++changes; });
  form.txtTotalValue.Changed.Always([&] { ++changes; });
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

TEST_F(CountingLinesTest, Loaded_lines_are_coloured_and_drawn_in_few_steps) {
  MakeGoods();
  for (int row = 1; row <= 30; ++row) {
    Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1'," +
            std::to_string(row) + ")");
  }
  int changes = 0;
  form.flexDetail.RowsChanged.Always([&](const GridChange&) { ++changes; });
  form.lines.FillInvCounterDetailData(5);
  EXPECT_LE(changes, 3);
  EXPECT_EQ(form.flexDetail.RowBackColor(30), CountingLines::kEvenRowColor);
}

}  // namespace
}  // namespace koru
