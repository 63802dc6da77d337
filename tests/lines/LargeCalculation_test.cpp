#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/Sample.h"
#include "platform/Numbers.h"
#include "tests/lines/LineForm.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

/// The statements of a line, translated by hand and run one by one with nothing kept in between.
class ByHand {
 public:
  explicit ByHand(const std::string& file)
      : connection_(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0)) {}

  std::string Stock(const std::string& barcode) {
    return NumberText(Sum("Receipt", barcode) - Sum("Dispatch", barcode));
  }

  std::string Rate(const std::string& barcode, const std::string& before) {
    for (const char* kind : {"Dispatch", "Receipt"}) {
      SqliteStatement rates = connection_.Prepare(
          "select Value" + LinesOf(kind) + " and Barcode = ?1 and Value > 0 order by ReceiveDate desc");
      rates.Bind(1, barcode);
      if (rates.Step()) return NumberText(rates.Real(0));
    }
    return before;
  }

  std::string Unit(const std::string& barcode) {
    SqliteStatement own = connection_.Prepare(
        "select ID from tblGoodScale join tblGoodSaleScale on ScaleID = ID where ScaleToBaseParent = 1 and "
        "Barcode = ?1"
        " order by ID");
    own.Bind(1, barcode);
    if (own.Step()) return std::string(own.Text(0));
    return std::to_string(connection_.Number("select min(ID) from tblGoodScale where ScaleToBaseParent = 1"));
  }

 private:
  static std::string LinesOf(const std::string& kind) {
    return " from tblInventory" + kind + "Detail join tblInventory" + kind + " on ID = " + kind +
           "ID where ReceiveDate between '2025-03-21' and '2026-03-20' and Code is not null and (InventoryID "
           "= 1 or"
           " InventoryID in (select ChildID from tblInventoryParent where ID = 1))"
           " and ltrim(rtrim(Barcode)) = ?1 collate KORU";
  }
  double Sum(const std::string& kind, const std::string& barcode) {
    SqliteStatement sum = connection_.Prepare("select ifnull(sum(Qty), 0)" + LinesOf(kind));
    sum.Bind(1, barcode);
    sum.Step();
    return sum.Real(0);
  }

  SqliteConnection connection_;
};

class LargeCalculationTest : public testing::Test {
 protected:
  LargeCalculationTest() {
    CreateSample(file_, SampleSize::Medium, {});
    form_ =
        std::make_unique<LineForm>(screen_, components_, connector_, "Provider=SQLite;Data Source=" + file_);
    form_->lines.FillInvCounterDetailData(1);
    form_->gmpInventory.Select(1);
    form_->gdpFromDate.SetValue(ParseIso("2025-03-21"));
    form_->gdpToDate.SetValue(ParseIso("2026-03-20"));
  }
  /// Calculates and compares every line; answers the number of those that have a stock.
  int CompareAll() {
    const std::vector<std::string> before = form_->Column(LineColumn::Rate);
    form_->quantity.CalculateAllLines();
    ByHand byHand(file_);
    int inStock = 0;
    for (int row = 1; row < form_->flexDetail.Rows(); ++row) {
      const std::string barcode = form_->Cell(row, LineColumn::Barcode);
      EXPECT_EQ(form_->Cell(row, LineColumn::SystemCounting), byHand.Stock(barcode)) << barcode;
      EXPECT_EQ(form_->Cell(row, LineColumn::Rate),
                byHand.Rate(barcode, before[static_cast<std::size_t>(row - 1)]))
          << barcode;
      EXPECT_EQ(form_->Cell(row, LineColumn::ScaleID), byHand.Unit(barcode)) << barcode;
      inStock += form_->Cell(row, LineColumn::SystemCounting) == "0" ? 0 : 1;
    }
    return inStock;
  }

  test::TemporaryFolder folder_;
  std::string file_ = folder_.File("medium.koru");
  test::FakeScreen screen_;
  ComponentRegistry components_;
  SqliteConnector connector_;
  std::unique_ptr<LineForm> form_;
};

TEST_F(LargeCalculationTest,
       Every_line_gets_what_its_statements_give_one_by_one_also_after_others_have_written) {
  ASSERT_EQ(form_->flexDetail.Rows(), 3277);
  EXPECT_GT(CompareAll(), 3000);
  SqliteConnection other(file_, SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  other.Execute(
      "update tblInventoryReceipt set Code = null where ID % 3 = 0;"
      "update tblInventoryDispatch set InventoryID = 12 where ID % 5 = 0;"
      "update tblInventoryDispatchDetail set Value = Value + 7 where DispatchID % 2 = 0");
  const std::vector<std::string> stocks = form_->Column(LineColumn::SystemCounting);
  EXPECT_GT(CompareAll(), 2500);
  EXPECT_NE(form_->Column(LineColumn::SystemCounting), stocks);
}

}  // namespace
}  // namespace koru
