#include "lines/SystemQuantity.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/lines/StoredLinesTest.h"

namespace koru {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

constexpr const char* kRegistered = "1";
constexpr const char* kTemporary = "null";

/// Store 1 has the child 2, which has the child 3; every unit but the third is a base unit.
class SystemQuantityTest : public StoredLinesTest {
 protected:
  using StoredLinesTest::StoredLinesTest;

  void SetUp() override {
    Execute("insert into tblInventoryParent (ID,ChildID) values (1,2)");
    Execute("insert into tblInventoryParent (ID,ChildID) values (2,3)");
    Execute("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (4,'كيلو',1)");
    Execute("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (2,'عدد',1)");
    Execute("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'كارتن',12)");
    form.gmpInventory.Select(1);
    NewStatements();
  }

  void Receive(const char* code, int store, const char* date, const char* barcode, double qty, double value) {
    Book("Receipt", code, store, date, barcode, qty, value);
  }
  void Dispatch(const char* code, int store, const char* date, const char* barcode, double qty,
                double value) {
    Book("Dispatch", code, store, date, barcode, qty, value);
  }
  /// Book stock of a good in store 1, between the form's dates.
  double Stock(const char* barcode) { return form.quantity.GetQTy(1, barcode); }
  /// The rate that a line of the good gets; "as it was" when it gets none.
  std::string Rate(const char* barcode) {
    const int row = form.AddLine(barcode);
    form.Set(row, LineColumn::Rate, "as it was");
    form.quantity.CalculateAllLines();
    return form.Cell(row, LineColumn::Rate);
  }
  /// The unit that a line of the good gets: its name and its key.
  Texts Unit(const char* barcode) {
    const int row = form.AddLine(barcode);
    form.Set(row, LineColumn::UnitName, "as it was");
    form.Set(row, LineColumn::ScaleID, "9");
    form.quantity.CalculateAllLines();
    return {form.Cell(row, LineColumn::UnitName), form.Cell(row, LineColumn::ScaleID)};
  }

 private:
  void Book(const std::string& kind, const std::string& code, int store, const std::string& date,
            const std::string& barcode, double qty, double value) {
    const std::string id = std::to_string(++documents_);
    Execute("insert into tblInventory" + kind + " (ID,Code,InventoryID,ReceiveDate) values (" + id + "," +
            code + "," + std::to_string(store) + ",'" + date + "')");
    Execute("insert into tblInventory" + kind + "Detail (" + kind + "ID,Barcode,Qty,Value) values (" + id +
            ",'" + barcode + "'," + std::to_string(qty) + "," + std::to_string(value) + ")");
  }

  int documents_ = 0;
};

/// The order of documents with one date, which a server does not promise.
class DocumentsOfOneDate : public SystemQuantityTest {
 protected:
  DocumentsOfOneDate() : SystemQuantityTest(test::TestDatabase::Kind::File) {}
};

TEST_F(SystemQuantityTest, Without_dates_every_registered_document_of_the_store_and_its_children_counts) {
  Receive(kRegistered, 1, "1990-01-01", "A", 10, 1);
  Receive(kRegistered, 2, "2030-01-01", "A", 5.5, 1);
  Dispatch(kRegistered, 2, "2001-01-01", "A", 3, 1);
  Receive(kRegistered, 9, "2001-01-01", "A", 100, 1);
  Receive(kRegistered, 1, "2001-01-01", "B", 100, 1);
  EXPECT_EQ(Stock("A"), 12.5);
}

TEST_F(SystemQuantityTest, A_document_that_is_not_registered_counts_neither_in_the_stock_nor_in_the_rate) {
  Receive(kTemporary, 1, "2001-01-01", "A", 10, 7);
  Dispatch(kTemporary, 1, "2001-01-01", "A", 3, 8);
  EXPECT_EQ(Stock("A"), 0);
  EXPECT_EQ(Rate("A"), "as it was");
}

TEST_F(SystemQuantityTest, A_store_below_a_child_is_not_included) {
  Receive(kRegistered, 3, "2001-01-01", "A", 10, 7);
  EXPECT_EQ(Stock("A"), 0);
  EXPECT_EQ(Rate("A"), "as it was");
  EXPECT_EQ(form.quantity.GetQTy(2, "A"), 10);
}

TEST_F(SystemQuantityTest, Only_documents_between_the_dates_count_and_both_days_belong) {
  const char* days[] = {"2001-01-01", "2001-01-02", "2001-01-03", "2001-01-04"};
  double quantity = 1;
  for (const char* date : days) {
    Receive(kRegistered, 1, date, "A", quantity, quantity);
    quantity *= 10;
  }
  EXPECT_EQ(Stock("A"), 1111);
  form.gdpFromDate.SetValue(year(2001) / month(1) / day(2));
  EXPECT_EQ(Stock("A"), 1110);
  form.gdpToDate.SetValue(year(2001) / month(1) / day(3));
  EXPECT_EQ(Stock("A"), 110);
  EXPECT_EQ(Rate("A"), "100");
  form.gdpFromDate.Clear();
  EXPECT_EQ(Stock("A"), 111);
}

TEST_F(SystemQuantityTest, Blanks_around_a_stored_barcode_do_not_matter_to_the_stock) {
  Receive(kRegistered, 1, "2001-01-01", "  A ", 10, 1);
  EXPECT_EQ(Stock("A"), 10);
  EXPECT_EQ(Stock(" A  "), 10);
}

TEST_F(SystemQuantityTest, Tenths_that_were_received_and_dispatched_again_leave_no_stock) {
  Receive(kRegistered, 1, "2001-01-01", "A", 0.1, 1);
  Receive(kRegistered, 1, "2001-01-02", "A", 0.2, 1);
  Dispatch(kRegistered, 1, "2001-01-03", "A", 0.3, 1);
  EXPECT_EQ(Stock("A"), 0);
  Receive(kRegistered, 1, "2001-01-01", "B", 10, 1);
  Dispatch(kRegistered, 1, "2001-01-03", "B", 9.97, 1);
  EXPECT_EQ(Stock("B"), 0.03);
  Receive(kRegistered, 1, "2001-01-01", "C", 123456789.1, 1);
  Dispatch(kRegistered, 1, "2001-01-03", "C", 123456789, 1);
  EXPECT_EQ(Stock("C"), 0.1);
}

TEST_F(SystemQuantityTest, A_leading_blank_of_a_stored_barcode_matters_to_the_rate) {
  Dispatch(kRegistered, 1, "2001-01-01", " A", 1, 5);
  EXPECT_EQ(Rate("A"), "as it was");
}

TEST_F(SystemQuantityTest, The_rate_is_that_of_the_latest_dispatch_with_a_value) {
  Dispatch(kRegistered, 1, "2001-01-01", "A", 1, 5);
  Dispatch(kRegistered, 2, "2001-03-01", "A", 1, 6.25);
  Dispatch(kRegistered, 1, "2001-02-01", "A", 1, 7);
  Dispatch(kRegistered, 1, "2001-04-01", "A", 1, 0);
  Receive(kRegistered, 1, "2001-05-01", "A", 1, 9);
  EXPECT_EQ(Rate("A"), "6.25");
}

TEST_F(DocumentsOfOneDate, Of_several_dispatches_on_one_day_the_one_with_the_highest_key_gives_the_rate) {
  Dispatch(kRegistered, 1, "2001-03-01", "A", 1, 5);
  Dispatch(kRegistered, 1, "2001-03-01", "A", 1, 9);
  Dispatch(kRegistered, 2, "2001-03-01", "A", 1, 6.25);
  Dispatch(kRegistered, 1, "2001-02-01", "A", 1, 7);
  EXPECT_EQ(Rate("A"), "6.25");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Column(LineColumn::Rate), (Texts{"6.25"}));
}

TEST_F(DocumentsOfOneDate, Of_several_receipts_on_one_day_the_one_with_the_highest_key_gives_the_rate) {
  Receive(kRegistered, 1, "2001-03-01", "A", 1, 9);
  Receive(kRegistered, 1, "2001-03-01", "A", 1, 5);
  EXPECT_EQ(Rate("A"), "5");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Column(LineColumn::Rate), (Texts{"5"}));
}

TEST_F(DocumentsOfOneDate, Of_several_lines_of_the_latest_dispatch_the_last_one_gives_the_rate) {
  Dispatch(kRegistered, 1, "2001-03-01", "A", 1, 5);
  for (const char* value : {"9", "6.25"})
    Execute(std::string(
                "insert into tblInventoryDispatchDetail (DispatchID,Barcode,Qty,Value) values (1,'A',1,") +
            value + ")");
  EXPECT_EQ(Rate("A"), "6.25");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Column(LineColumn::Rate), (Texts{"6.25"}));
}

TEST_F(SystemQuantityTest, A_good_whose_dispatches_have_no_value_takes_the_rate_of_its_latest_receipt) {
  Dispatch(kRegistered, 1, "2001-06-01", "A", 1, 0);
  Receive(kRegistered, 1, "2001-01-01", "A", 1, 5);
  Receive(kRegistered, 1, "2001-02-01", "A", 1, 8);
  Receive(kRegistered, 1, "2001-03-01", "A", 1, 0);
  EXPECT_EQ(Rate("A"), "8");
}

TEST_F(SystemQuantityTest, A_good_without_documents_has_no_stock_and_keeps_its_rate) {
  EXPECT_EQ(Stock("A"), 0);
  EXPECT_EQ(Rate("A"), "as it was");
}

TEST_F(SystemQuantityTest, A_good_is_counted_in_its_own_base_unit) {
  Execute("insert into tblGoodSaleScale (Barcode,ScaleID) values ('A',1)");
  Execute("insert into tblGoodSaleScale (Barcode,ScaleID) values ('A',4)");
  EXPECT_EQ(Unit("A"), (Texts{"كيلو", "4"}));
}

TEST_F(SystemQuantityTest, A_good_without_one_is_counted_in_the_base_unit_with_the_lowest_key) {
  Execute("insert into tblGoodSaleScale (Barcode,ScaleID) values ('A',1)");
  EXPECT_EQ(Unit("A"), (Texts{"عدد", "2"}));
}

TEST_F(SystemQuantityTest, Without_any_base_unit_a_line_keeps_its_unit) {
  Execute("delete from tblGoodScale where ScaleToBaseParent=1");
  EXPECT_EQ(Unit("A"), (Texts{"as it was", "9"}));
}

TEST_F(SystemQuantityTest, With_no_store_chosen_no_document_counts) {
  server.trips.statementsPerTrip = 1;
  Receive(kRegistered, 1, "2001-01-01", "A", 10, 7);
  form.gmpInventory.ClearSelection();
  form.AddLine("A");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Cell(1, LineColumn::SystemCounting), "0");
  EXPECT_NE(NewStatements().back().find(
                "(InventoryID=-1 or InventoryID in (Select ChildID from tblInventoryParent Where "
                "ID=-1)))"),
            std::string::npos);
}

TEST_F(SystemQuantityTest, Every_line_gets_unit_rate_stock_difference_and_amounts_anew) {
  Receive(kRegistered, 1, "2001-01-01", "A", 10, 4);
  Dispatch(kRegistered, 1, "2001-01-02", "A", 2.5, 3);
  const int a = form.AddLine(" A ");
  form.Set(a, LineColumn::ScaleID, "1");
  form.Set(a, LineColumn::AcceptedCounting, "5");
  const int b = form.AddLine("B");
  form.Set(b, LineColumn::AcceptedCounting, "2");
  form.Set(b, LineColumn::Rate, "6");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Row(a),
            (Texts{"", " A ", "", "", "عدد", "2", "", "", "", "5", "7.5", "2.5", "", "3", "7.5", "", "15"}));
  EXPECT_EQ(form.Row(b),
            (Texts{"", "B", "", "", "عدد", "2", "", "", "", "2", "0", "", "2", "6", "", "12", "12"}));
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "8") << "7.5, half to even";
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "12");
  EXPECT_EQ(form.txtTotalValue.Text(), "27");
}

TEST_F(SystemQuantityTest, Changing_the_dates_and_calculating_again_changes_every_line) {
  Receive(kRegistered, 1, "2001-01-01", "A", 10, 4);
  Receive(kRegistered, 1, "2001-02-01", "B", 20, 5);
  form.AddLine("A");
  form.AddLine("B");
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Column(LineColumn::SystemCounting), (Texts{"10", "20"}));
  form.gdpFromDate.SetValue(year(2001) / month(1) / day(15));
  form.quantity.CalculateAllLines();
  EXPECT_EQ(form.Column(LineColumn::SystemCounting), (Texts{"0", "20"}));
  EXPECT_EQ(form.Column(LineColumn::Rate), (Texts{"4", "5"}));
}

TEST_F(SystemQuantityTest, A_calculation_of_two_lines_sends_these_statements) {
  server.trips.statementsPerTrip = 1;
  form.gdpFromDate.SetValue(year(2001) / month(1) / day(2));
  form.gdpToDate.SetValue(year(2001) / month(12) / day(31));
  Execute("insert into tblGoodSaleScale (Barcode,ScaleID) values ('A',4)");
  Dispatch(kRegistered, 1, "2001-01-02", "A", 2, 3);
  form.AddLine(" A ");
  form.AddLine("B");
  NewStatements();
  form.quantity.CalculateAllLines();
  const std::string units = "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 ";
  const std::string documents =
      "ReceiveDate>='2001-01-02' and ReceiveDate<='2001-12-31' and  Code is not NULL and (InventoryID=1 or "
      "InventoryID "
      "in (Select ChildID from tblInventoryParent Where ID=1";
  const std::string latest = "' and Isnull(Value,0)>0 and " + documents + ")) Order By ReceiveDate Desc";
  const std::string rate = "Select isnull(Value,0) as Value from ";
  const std::string sum = "Select isnull(sum(isnull(Qty,0)),0) as Qty from ";
  const auto sums = [&](const std::string& barcode) {
    return Texts{sum + "tblInventoryReceiptDetail where LTrim(RTrim(Barcode))='" + barcode +
                     "' and ReceiptID in (select ID from tblInventoryReceipt where " + documents + ")))",
                 sum + "tblInventoryDispatchDetail where LTrim(RTrim(Barcode))='" + barcode +
                     "' and DispatchID in (select ID from tblInventoryDispatch where " + documents + ")))"};
  };
  Texts expected = {
      units + "and ID in (Select ScaleID from tblGoodSaleScale Where Barcode = 'A')",
      rate + "tblInventoryDispatchDetail,tblInventoryDispatch Where ID=DispatchID and Barcode='A" + latest,
      sums("A")[0],
      sums("A")[1],
      units + "and ID in (Select ScaleID from tblGoodSaleScale Where Barcode = 'B')",
      units + "Order by ID",
      rate + "tblInventoryDispatchDetail,tblInventoryDispatch Where ID=DispatchID and Barcode='B" + latest,
      rate + "tblInventoryReceiptDetail,tblInventoryReceipt Where ID=ReceiptID and Barcode='B" + latest,
      sums("B")[0],
      sums("B")[1]};
  EXPECT_EQ(NewStatements(), expected);
}

TEST_F(SystemQuantityTest, Without_dates_the_statements_have_no_date_clause) {
  static_cast<void>(Stock("A"));
  EXPECT_EQ(
      NewStatements().front(),
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
      "LTrim(RTrim(Barcode))='A' "
      "and ReceiptID in (select ID from tblInventoryReceipt where  Code is not NULL and (InventoryID=1 or "
      "InventoryID in (Select ChildID from tblInventoryParent Where ID=1)))");
}

TEST_F(SystemQuantityTest, An_empty_grid_shows_the_progress_bar_of_nothing_and_hides_it_again) {
  Texts seen;
  form.pgbStatus.SetMax(7);
  form.pgbStatus.SetVisible(false);
  form.pgbStatus.StateChanged.Always([&] {
    seen.push_back((form.pgbStatus.Visible() ? "shown " : "hidden ") +
                   std::to_string(form.pgbStatus.Value()) + "/" + std::to_string(form.pgbStatus.Max()));
  });
  form.quantity.CalculateAllLines();
  EXPECT_EQ(seen, (Texts{"shown 0/7", "shown 0/0", "shown 0/0", "hidden 0/0"}));
  EXPECT_EQ(form.txtTotalValue.Text(), "0");
  EXPECT_EQ(NewStatements(), Texts{});
}

TEST_F(SystemQuantityTest, The_progress_bar_and_the_hourglass_show_every_line) {
  server.trips.statementsPerTrip = 1;
  for (const char* barcode : {"A", "B", "C"}) form.AddLine(barcode);
  form.pgbStatus.SetVisible(false);
  Texts seen;
  form.pgbStatus.StateChanged.Always([&] {
    if (!form.pgbStatus.Visible() || screen.CurrentCursor() != Cursor::Hourglass) return;
    seen.push_back(std::to_string(form.pgbStatus.Value()) + "/" + std::to_string(form.pgbStatus.Max()));
  });
  form.quantity.CalculateAllLines();
  EXPECT_EQ(seen, (Texts{"1/3", "2/3", "3/3"}));
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

/// Two lines whose goods need all six statements: no unit of their own, no dispatch with a value.
class FailingCalculation : public SystemQuantityTest, public ::testing::WithParamInterface<int> {
 protected:
  static constexpr int kStatementsOfALine = 6;

  void SetUp() override {
    SystemQuantityTest::SetUp();
    server.trips.statementsPerTrip = 1;
    Receive(kRegistered, 1, "2001-01-01", "A", 10, 4);
    Receive(kRegistered, 1, "2001-01-01", "B", 20, 5);
    for (const char* barcode : {"A", "B"}) {
      const int row = form.AddLine(barcode);
      for (const int col :
           {LineColumn::UnitName, LineColumn::Rate, LineColumn::SystemCounting, LineColumn::Shortage}) {
        form.Set(row, col, "before");
      }
    }
    form.txtTotalBelowValue.SetText("before");
  }
  /// Unit, rate, book stock and shortage of a line.
  Texts Results(int row) {
    return {form.Cell(row, LineColumn::UnitName), form.Cell(row, LineColumn::Rate),
            form.Cell(row, LineColumn::SystemCounting), form.Cell(row, LineColumn::Shortage)};
  }
};

TEST_P(FailingCalculation, The_lines_done_before_a_failure_stay_and_the_progress_bar_is_still_there) {
  const int failedStatement = GetParam();
  failing.Plan().FailAt(failedStatement);
  try {
    form.quantity.CalculateAllLines();
    FAIL() << "no failure";
  } catch (const DatabaseError& failure) {
    EXPECT_EQ(failure.ServerText(), test::FaultPlan::kServerText);
  }

  const int failedRow = (failedStatement - 1) / kStatementsOfALine + 1;
  const int sentForRow = (failedStatement - 1) % kStatementsOfALine;
  const Texts done[] = {{}, {"عدد", "4", "10", "10"}, {"عدد", "5", "20", "20"}};
  for (int row = 1; row <= 2; ++row) {
    Texts expected = row < failedRow ? done[row] : Texts(4, "before");
    if (row == failedRow && sentForRow >= 2) expected[0] = done[row][0];
    if (row == failedRow && sentForRow >= 4) expected[1] = done[row][1];
    EXPECT_EQ(Results(row), expected) << row;
  }
  EXPECT_TRUE(form.pgbStatus.Visible());
  EXPECT_EQ(form.pgbStatus.Value(), failedRow);
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "before");
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

TEST_P(FailingCalculation, The_next_calculation_does_it_all) {
  failing.Plan().FailAt(GetParam());
  EXPECT_THROW(form.quantity.CalculateAllLines(), DatabaseError);
  form.quantity.CalculateAllLines();
  EXPECT_EQ(Results(1), (Texts{"عدد", "4", "10", "10"}));
  EXPECT_EQ(Results(2), (Texts{"عدد", "5", "20", "20"}));
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "140");
}

INSTANTIATE_TEST_SUITE_P(AtEachStatement, FailingCalculation, ::testing::Range(1, 13));

}  // namespace
}  // namespace koru
