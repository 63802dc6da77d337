#include <gtest/gtest.h>

#include <string>

#include "platform/sql/DatabaseError.h"
#include "tests/lines/StoredLinesTest.h"

namespace koru {
namespace {

class StoredLines : public StoredLinesTest {
 protected:
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

TEST_F(StoredLines, A_counting_without_lines_shows_its_header_row_and_sums_of_zero) {
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.flexDetail.Rows(), 1);
  EXPECT_EQ(Sums(), (Texts{"0", "0", "0"}));
}

TEST_F(StoredLines, A_line_is_shown_with_all_that_was_stored_and_what_follows_from_it) {
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

TEST_F(StoredLines, A_line_without_a_unit_shows_an_empty_name_and_minus_one) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Cell(1, LineColumn::UnitName), "");
  EXPECT_EQ(form.Cell(1, LineColumn::ScaleID), "-1");
}

TEST_F(StoredLines, Nothing_stored_gives_empty_cells_and_no_amounts) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Row(1),
            (Texts{"1", "A1", "G1", "گچ", "", "-1", "", "", "", "", "", "", "", "0", "", "", ""}));
}

TEST_F(StoredLines, A_difference_of_zero_is_neither_shortage_nor_surplus) {
  MakeGoods();
  Execute(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ContradictionCounting,BaseValue) "
      "values (5,'A1',1,0,4)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Cell(1, LineColumn::Shortage), "");
  EXPECT_EQ(form.Cell(1, LineColumn::Surplus), "");
  EXPECT_EQ(form.Cell(1, LineColumn::ShortageAmount), "");
}

TEST_F(StoredLines, A_line_whose_good_was_deleted_is_not_shown) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'gone',2)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A2',3)");
  form.lines.FillInvCounterDetailData(5);
  EXPECT_EQ(form.Column(LineColumn::Barcode), (Texts{"A1", "A2"}));
  EXPECT_EQ(form.Column(LineColumn::RowNumber), (Texts{"1", "2"}));
}

TEST_F(StoredLines, The_lines_of_the_counting_before_and_of_others_are_not_shown) {
  MakeGoods();
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (5,'A1',1)");
  Execute("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (6,'A2',1)");
  form.lines.FillInvCounterDetailData(5);
  form.lines.FillInvCounterDetailData(6);
  EXPECT_EQ(form.Column(LineColumn::Barcode), Texts{"A2"});
}

TEST_F(StoredLines, Lines_are_read_with_one_statement) {
  form.lines.FillInvCounterDetailData(-5);
  EXPECT_EQ(
      NewStatements(),
      Texts{
          "select round(isnull(BaseValue,0),0) as Value, tblGood.barcode,FirstCounting,SecondCounting,"
          "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,isnull(ScaleID,-1) as ScaleID,"
          "isnull(tblGoodScale.Name,'') as UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as "
          "GoodName from tblInventoryCountingDetail Inner Join tblGood on "
          "tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On "
          "ScaleID=tblGoodScale.ID where CountingID =-5 Order By RowNumber"});
}

TEST_F(StoredLines, A_failure_of_the_database_leaves_no_lines_of_another_counting) {
  form.AddLine("1");
  failing.Plan().FailAt(1);
  EXPECT_THROW(form.lines.FillInvCounterDetailData(5), DatabaseError);
  EXPECT_EQ(form.flexDetail.Rows(), 1);
}

TEST_F(StoredLines, Loaded_lines_are_coloured_and_drawn_in_few_steps) {
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
