#include "lines/MovedStock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "lines/frmMovedStock.h"
#include "platform/sql/DatabaseError.h"
#include "tests/lines/StoredLinesTest.h"

namespace koru {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

/// Store 1 with the child 2; one base unit.
class MovedStockTest : public StoredLinesTest {
 protected:
  void SetUp() override {
    Execute(
        "insert into tblInventoryParent (ID,ChildID) values (1,2);"
        "insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (2,'عدد',1)");
    form.gmpInventory.Select(1);
  }

  /// Registers a document with the next number of its kind; returns its number.
  int Receive(const char* barcode, double qty, double value = 1, const char* date = "2025-01-01") {
    return Register("Receipt", barcode, qty, value, date);
  }
  int Dispatch(const char* barcode, double qty, double value = 1, const char* date = "2025-01-01") {
    return Register("Dispatch", barcode, qty, value, date);
  }
  int Register(const std::string& kind, const std::string& barcode, double qty, double value,
               const std::string& date) {
    const std::string id = std::to_string(++documents_);
    Execute("insert into tblInventory" + kind +
            " (ID,Code,InventoryID,ReceiveDate,FarsiReceiveDate) values (" + id + "," + id + ",1,'" + date +
            "','1403/10/" + std::to_string(10 + documents_ % 20) + "')");
    AddLineTo(kind, documents_, barcode, qty, value);
    return documents_;
  }
  void AddLineTo(const std::string& kind, int document, const std::string& barcode, double qty,
                 double value = 1) {
    Execute("insert into tblInventory" + kind + "Detail (" + kind + "ID,Barcode,Qty,Value) values (" +
            std::to_string(document) + ",'" + barcode + "'," + std::to_string(qty) + "," +
            std::to_string(value) + ")");
  }

  std::vector<MovedLine> Moved() {
    return stock.Find().value_or(std::vector<MovedLine>{{-1, "cancelled", {}}});
  }
  /// The rows that moved, with what they show and what the books say.
  Texts MovedTexts() {
    Texts texts;
    for (const MovedLine& line : Moved())
      texts.push_back(std::to_string(line.row) + ": " + line.shownStock + " -> " +
                      std::to_string(static_cast<int>(*line.figures.bookStock)));
    return texts;
  }
  std::vector<Texts> Lines() {
    std::vector<Texts> rows;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) rows.push_back(form.Row(row));
    rows.push_back(
        {form.txtTotalBelowValue.Text(), form.txtTotalAboveValue.Text(), form.txtTotalValue.Text()});
    return rows;
  }

  MovedStock stock{form, form.lines, form.quantity};

 private:
  int documents_ = 0;
};

TEST_F(MovedStockTest, Directly_after_a_calculation_no_line_has_moved) {
  Receive("A", 10);
  form.AddLine("A");
  form.AddLine("B");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(MovedTexts(), Texts{});
}

TEST_F(MovedStockTest, A_line_whose_good_was_dispatched_meanwhile_is_listed_with_both_figures) {
  Receive("A", 10);
  Receive("B", 7);
  form.AddLine("A");
  form.AddLine("B");
  form.quantity.CalculateAllLines();
  Dispatch("B", 3);
  EXPECT_EQ(MovedTexts(), (Texts{"2: 7 -> 4"}));
}

TEST_F(MovedStockTest, The_check_changes_no_line_and_writes_nothing) {
  Receive("A", 10);
  form.Set(form.AddLine("A"), LineColumn::AcceptedCounting, "4");
  form.quantity.CalculateAllLines();
  Dispatch("A", 3, 9);
  const auto before = Lines();
  NewStatements();
  EXPECT_EQ(Moved().size(), 1U);
  EXPECT_EQ(Lines(), before);
  for (const std::string& statement : NewStatements())
    EXPECT_TRUE(statement.starts_with("Select ")) << statement;
}

TEST_F(MovedStockTest, The_check_sends_what_Calculate_sends) {
  Receive("A", 10);
  form.AddLine("A");
  form.AddLine("B");
  NewStatements();
  form.quantity.CalculateAllLines();
  const Texts calculated = NewStatements();
  EXPECT_EQ(MovedTexts(), Texts{});
  EXPECT_EQ(NewStatements(), calculated);
  EXPECT_FALSE(calculated.empty());
}

TEST_F(MovedStockTest, A_line_that_was_never_calculated_is_listed) {
  form.AddLine("A");
  EXPECT_EQ(MovedTexts(), (Texts{"1:  -> 0"}));
}

TEST_F(MovedStockTest, A_line_that_is_taken_gets_stock_unit_rate_and_differences_and_the_others_stay) {
  Receive("A", 10, 5);
  Receive("B", 20, 6);
  for (const char* barcode : {"A", "B"}) form.Set(form.AddLine(barcode), LineColumn::AcceptedCounting, "8");
  form.quantity.CalculateAllLines();
  const Texts other = form.Row(1);
  Dispatch("A", 1, 100);
  Dispatch("B", 3, 7);
  auto moved = Moved();
  moved.erase(moved.begin());
  stock.Take(moved);
  EXPECT_EQ(form.Row(1), other);
  EXPECT_EQ(form.Row(2),
            (Texts{"", "B", "", "", "عدد", "2", "", "", "", "8", "17", "9", "", "7", "63", "", "56"}));
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "73") << "10 and 63";
}

TEST_F(MovedStockTest, A_cancelled_check_returns_nothing) {
  Receive("A", 10);
  form.AddLine("A");
  const Subscription cancel = form.pgbStatus.StateChanged.Subscribe([this] { form.cmdStop.UserClick(); });
  EXPECT_EQ(stock.Find(), std::nullopt);
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(form.Cell(1, LineColumn::SystemCounting), "");
}

TEST_F(MovedStockTest, After_all_is_taken_the_lines_are_those_of_a_calculation) {
  std::mt19937 random(20260716);
  const auto one = [&random](int of) { return std::uniform_int_distribution<int>(0, of - 1)(random); };
  const auto barcode = [](int good) { return std::string(1, static_cast<char>('A' + good)); };
  for (int round = 0; round < 25; ++round) {
    form.flexDetail.SetRows(1);
    for (int good = 0; good < 8; ++good) {
      const int row = form.AddLine(barcode(good));
      if (one(3) != 0) form.Set(row, LineColumn::AcceptedCounting, std::to_string(one(30)));
    }
    form.quantity.CalculateAllLines();
    std::vector<bool> touched(8, false);
    for (int i = one(6); i > 0; --i) {
      const int good = one(8);
      if (one(2) == 0)
        Receive(barcode(good).c_str(), 1 + one(9), 1 + one(5));
      else
        Dispatch(barcode(good).c_str(), 1 + one(9), 1 + one(5));
      touched[static_cast<std::size_t>(good)] = true;
    }
    const auto untouched = Lines();
    const auto moved = Moved();
    stock.Take(moved);
    const auto taken = Lines();
    form.quantity.CalculateAllLines();
    const auto calculated = Lines();
    std::vector<bool> isMoved(8, false);
    for (const MovedLine& line : moved) isMoved[static_cast<std::size_t>(line.row) - 1] = true;
    for (std::size_t line = 0; line < 8; ++line) {
      // A receipt and a dispatch may cancel out: such a line keeps its rate.
      EXPECT_EQ(taken[line], isMoved[line] ? calculated[line] : untouched[line]) << round << " " << line;
      EXPECT_TRUE(touched[line] || !isMoved[line]) << round << " " << line;
    }
  }
}

TEST_F(MovedStockTest, The_documents_of_a_good_are_read_by_their_numbers_the_latest_first) {
  Receive("A", 10);
  Receive("B", 99);
  const int second = Receive("A", 4);
  AddLineTo("Receipt", second, "A", 0.5);
  const int out = Dispatch("A", 3);
  NewStatements();
  const StockMoves moves = StockMovesReader(shared.data, form, 1).Latest("A");
  ASSERT_EQ(moves.receipts.size(), 2U);
  EXPECT_EQ(moves.receipts[0], (StockMove{StockMove::Kind::Receipt, "3", "1403/10/13", 4.5}));
  EXPECT_EQ(moves.receipts[1].code, "1");
  ASSERT_EQ(moves.dispatches.size(), 1U);
  EXPECT_EQ(moves.dispatches[0],
            (StockMove{StockMove::Kind::Dispatch, std::to_string(out), "1403/10/14", -3}));
  const std::string scope =
      " Code is not NULL and (InventoryID=1 or InventoryID in (Select ChildID from tblInventoryParent Where "
      "ID=1)) "
      "Order By Code Desc,ID Desc";
  EXPECT_EQ(
      NewStatements(),
      (Texts{
          "Select top 40 ID,Code,isnull(FarsiReceiveDate,'') as FarsiReceiveDate,isnull(Qty,0) as Qty from "
          "tblInventoryReceiptDetail,tblInventoryReceipt Where ID=ReceiptID and "
          "LTrim(RTrim(Barcode))='A' and " +
              scope,
          "Select top 40 ID,Code,isnull(FarsiReceiveDate,'') as FarsiReceiveDate,isnull(Qty,0) as Qty from "
          "tblInventoryDispatchDetail,tblInventoryDispatch Where ID=DispatchID and "
          "LTrim(RTrim(Barcode))='A' and " +
              scope}));
}

TEST_F(MovedStockTest, Documents_outside_the_store_the_dates_and_the_registered_ones_are_not_among_them) {
  Receive("A", 1, 1, "2025-01-01");
  Receive("A", 2, 1, "2025-02-01");
  Execute(
      "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (90,null,1,'2025-02-01'),"
      "(91,91,7,'2025-02-01')");
  AddLineTo("Receipt", 90, "A", 100);
  AddLineTo("Receipt", 91, "A", 100);
  form.gdpFromDate.SetValue(year(2025) / month(1) / day(15));
  const StockMoves moves = StockMovesReader(shared.data, form, 1).Latest("A");
  ASSERT_EQ(moves.receipts.size(), 1U);
  EXPECT_EQ(moves.receipts[0].quantity, 2);
}

TEST_F(MovedStockTest, A_document_that_the_limit_may_cut_off_is_left_out) {
  Receive("A", 1);
  const int large = Receive("A", 1);
  for (std::size_t i = 0; i < StockMovesReader::kMaxLinesOfDocuments; ++i)
    AddLineTo("Receipt", large, "A", 1);
  EXPECT_TRUE(StockMovesReader(shared.data, form, 1).Latest("A").receipts.empty());
}

StockMove In(const char* code, const char* date, double quantity) {
  return {StockMove::Kind::Receipt, code, date, quantity};
}
StockMove Out(const char* code, const char* date, double quantity) {
  return {StockMove::Kind::Dispatch, code, date, -quantity};
}

TEST(ExplainMoveTest, The_fewest_of_the_latest_documents_whose_sum_is_the_difference_explain_it) {
  const StockMoves latest{{In("9", "1404/01/03", 5), In("8", "1404/01/01", 4)},
                          {Out("7", "1404/01/02", 2.3)}};
  const auto codes = [&latest](double difference) {
    std::string text;
    const MoveExplanation explanation = ExplainMove(difference, latest);
    for (const StockMove& move : explanation.documents) text += move.code + " ";
    return text + (explanation.isWhole ? "whole" : "not");
  };
  EXPECT_EQ(codes(5), "9 whole");
  EXPECT_EQ(codes(9), "9 8 whole");
  EXPECT_EQ(codes(-2.3), "7 whole");
  EXPECT_EQ(codes(2.7), "9 7 whole");
  EXPECT_EQ(codes(6.7), "9 7 8 whole") << "the latest date first";
  EXPECT_EQ(codes(4), "9 7 8 not") << "an older document alone is not the latest one";
}

TEST(ExplainMoveTest, Without_documents_nothing_is_explained) {
  const MoveExplanation explanation = ExplainMove(-3, {});
  EXPECT_TRUE(explanation.documents.empty());
  EXPECT_FALSE(explanation.isWhole);
}

/// The list over two lines that have moved.
class MovedStockForm : public MovedStockTest {
 protected:
  void SetUp() override {
    MovedStockTest::SetUp();
    Receive("A", 10);
    Receive("B", 20);
    form.AddLine("A");
    form.AddLine("B");
    form.AddLine("C");
    form.quantity.CalculateAllLines();
    Dispatch("A", 3);
    Receive("B", 5);
    moved = Moved();
    NewStatements();
  }
  [[nodiscard]] static Texts RowOf(const Grid& grid, int row) {
    Texts cells;
    for (int col = 0; col < grid.Cols(); ++col) cells.emplace_back(grid.TextMatrix(row, col));
    return cells;
  }
  [[nodiscard]] static Texts TakenRows(const frmMovedStock& list) {
    Texts rows;
    for (const MovedLine& line : list.Taken()) rows.push_back(std::to_string(line.row));
    return rows;
  }

  std::vector<MovedLine> moved;
};

TEST_F(MovedStockForm, The_list_shows_the_old_stock_the_new_one_and_the_documents_of_the_current_line) {
  frmMovedStock list(shared, form, moved, true);
  EXPECT_EQ(list.lblSummary.Caption(), "موجودي دفتري 2 سطر از 3 سطر تغيير كرده است.");
  EXPECT_EQ(RowOf(list.flexMoved, 1), (Texts{"1", "", "A", "", "", "10", "7", "-3"}));
  EXPECT_EQ(RowOf(list.flexMoved, 2), (Texts{"2", "", "B", "", "", "20", "25", "5"}));
  EXPECT_EQ(list.lblDocuments.Caption(), "آخرين سندهاي كالا كه جمع آنها برابر تغيير است:");
  ASSERT_EQ(list.flexDocuments.Rows(), 2);
  EXPECT_EQ(RowOf(list.flexDocuments, 1), (Texts{"1", "خروج از انبار", "3", "1403/10/13", "-3"}));
  list.flexMoved.UserMoveTo(2, MovedColumn::Barcode);
  ASSERT_EQ(list.flexDocuments.Rows(), 2);
  EXPECT_EQ(RowOf(list.flexDocuments, 1), (Texts{"1", "رسيد انبار", "4", "1403/10/14", "5"}));
}

TEST_F(MovedStockForm, A_document_that_was_changed_in_place_is_admitted) {
  Execute("update tblInventoryReceiptDetail set Qty=11 where Barcode='A'");
  moved = Moved();
  const frmMovedStock list(shared, form, moved, true);
  EXPECT_EQ(list.lblDocuments.Caption(),
            "جمع آخرين سندها برابر تغيير نيست: سندي حذف شده يا تغيير كرده، يا انبار يا "
            "تاريخ‌هاي "
            "شمارش "
            "عوض "
            "شده است. "
            "آخرين سندهاي كالا:");
  EXPECT_EQ(list.flexDocuments.Rows(), 3);
}

TEST_F(MovedStockForm, Marked_lines_are_taken_and_marks_can_be_removed_again) {
  frmMovedStock list(shared, form, moved, true);
  EXPECT_FALSE(list.cmdTakeMarked.UserClick()) << "nothing is marked";
  list.flexMoved.UserClick(1, MovedColumn::GoodName);
  EXPECT_FALSE(list.cmdTakeMarked.Enabled());
  list.flexMoved.UserClick(1, MovedColumn::Mark);
  EXPECT_TRUE(list.cmdTakeMarked.Enabled());
  list.flexMoved.UserClick(1, MovedColumn::Mark);
  EXPECT_FALSE(list.cmdTakeMarked.Enabled());
  list.flexMoved.UserMoveTo(2, MovedColumn::Barcode);
  list.flexMoved.UserKey({32, 0});
  EXPECT_TRUE(list.cmdTakeMarked.UserClick());
  EXPECT_EQ(TakenRows(list), (Texts{"2"}));
  EXPECT_FALSE(list.Loaded());
}

TEST_F(MovedStockForm, All_are_taken_without_marks_and_closing_takes_none) {
  frmMovedStock all(shared, form, moved, true);
  all.cmdTakeAll.UserClick();
  EXPECT_EQ(TakenRows(all), (Texts{"1", "2"}));
  frmMovedStock none(shared, form, moved, true);
  none.flexMoved.UserClick(1, MovedColumn::Mark);
  none.cmdClose.UserClick();
  EXPECT_EQ(TakenRows(none), Texts{});
}

TEST_F(MovedStockForm, A_counting_that_is_only_viewed_takes_nothing) {
  frmMovedStock list(shared, form, moved, false);
  list.flexMoved.UserClick(1, MovedColumn::Mark);
  EXPECT_EQ(list.flexMoved.TextMatrix(1, MovedColumn::Mark), "");
  EXPECT_FALSE(list.cmdTakeAll.UserClick());
  EXPECT_FALSE(list.cmdTakeMarked.UserClick());
  EXPECT_NE(list.cmdTakeAll.Remark(), "");
}

TEST_F(MovedStockForm, Documents_that_cannot_be_read_are_reported_and_the_list_stays_usable) {
  frmMovedStock list(shared, form, moved, true);
  failing.Plan().FailAt(1);
  list.flexMoved.UserMoveTo(2, MovedColumn::Barcode);
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_EQ(list.flexDocuments.Rows(), 1);
  list.flexMoved.UserMoveTo(1, MovedColumn::Barcode);
  EXPECT_EQ(list.flexDocuments.Rows(), 2);
}

}  // namespace
}  // namespace koru
