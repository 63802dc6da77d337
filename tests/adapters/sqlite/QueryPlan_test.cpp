#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

constexpr const char* kBookStock =
    "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventory#Detail where LTrim(RTrim(Barcode))='123' "
    "and #ID in "
    "(select ID from tblInventory# where ReceiveDate>='2024-01-01' and ReceiveDate<='2024-12-31' and  Code "
    "is not NULL "
    "and (InventoryID=1 or InventoryID in (Select ChildID from tblInventoryParent Where ID=1)))";
constexpr const char* kRate =
    "Select isnull(Value,0) as Value from tblInventory#Detail,tblInventory# Where ID=#ID and Barcode='123' "
    "and "
    "Isnull(Value,0)>0 and ReceiveDate>='2024-01-01' and ReceiveDate<='2024-12-31' and  Code is not NULL and "
    "(InventoryID=1 or InventoryID in (Select ChildID from tblInventoryParent Where ID=1)) Order By "
    "ReceiveDate Desc";

/// A text about documents of that kind, Receipt or Dispatch, which it has as #.
std::string About(const std::string& kind, std::string text) {
  for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#'))
    text.replace(at, 1, kind);
  return text;
}

class QueryPlan : public testing::Test {
 protected:
  /// The steps of the plan, one a line.
  std::string Plan(const std::string& statement) {
    return PlanOf(TranslateOrdered(Normalize(statement).text, connection_));
  }
  std::string PlanInSnapshot(const std::string& statement) {
    return PlanOf(TranslateHoisted(Normalize(statement).text, connection_).sql);
  }
  std::string PlanOf(const std::string& sql) {
    std::string plan;
    SqliteStatement explain = connection_.Prepare("explain query plan " + sql);
    while (explain.Step()) plan += std::string(explain.Text(3)) + '\n';
    return plan;
  }
  static bool Has(const std::string& plan, const std::string& step) {
    return plan.find(step) != std::string::npos;
  }

  test::TestFile database_;
  SqliteConnection connection_{database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0)};
};

TEST_F(QueryPlan, Book_stocks_and_rates_find_the_lines_of_their_good_by_an_index_alone) {
  for (const char* kind : {"Receipt", "Dispatch"}) {
    const std::string stock = About(kind, kBookStock);
    const std::string rate = About(kind, kRate);
    for (const std::string& plan : {Plan(stock), PlanInSnapshot(stock)}) {
      EXPECT_TRUE(Has(plan, About(kind,
                                  "SEARCH tblInventory#Detail USING COVERING INDEX "
                                  "ixInventory#Detail_Barcode (<expr>=?")))
          << plan;
    }
    for (const std::string& plan : {Plan(rate), PlanInSnapshot(rate)}) {
      EXPECT_TRUE(Has(plan, About(kind,
                                  "SEARCH tblInventory#Detail USING COVERING INDEX "
                                  "ixInventory#Detail_Rate (Barcode=?")))
          << plan;
    }
  }
}

TEST_F(QueryPlan, A_rate_reads_the_documents_of_its_lines_by_their_key) {
  for (const char* kind : {"Receipt", "Dispatch"}) {
    const std::string plan = Plan(About(kind, kRate));
    EXPECT_TRUE(Has(plan, About(kind, "SEARCH tblInventory# USING INTEGER PRIMARY KEY"))) << plan;
    EXPECT_FALSE(Has(plan, "SCAN")) << plan;
  }
}

TEST_F(QueryPlan, In_a_snapshot_a_stock_and_a_rate_read_no_document) {
  for (const char* kind : {"Receipt", "Dispatch"}) {
    for (const char* statement : {kBookStock, kRate}) {
      const std::string plan = PlanInSnapshot(About(kind, statement));
      EXPECT_FALSE(Has(plan, About(kind, "tblInventory# "))) << plan;
      EXPECT_FALSE(Has(plan, "SCAN")) << plan;
    }
  }
}

TEST_F(QueryPlan, The_documents_of_a_store_and_its_children_are_found_by_one_search_of_an_index_alone) {
  for (const char* kind : {"Receipt", "Dispatch"}) {
    for (const char* statement : {kBookStock, kRate}) {
      const HoistedStatement hoisted = TranslateHoisted(Normalize(About(kind, statement)).text, connection_);
      ASSERT_EQ(hoisted.subqueries.size(), 1U);
      const std::string plan = PlanOf(hoisted.subqueries[0].sql + hoisted.subqueries[0].order);
      const std::string search = About(kind,
                                       "SEARCH tblInventory# USING COVERING INDEX "
                                       "ixInventory#_Inventory (InventoryID=? AND ReceiveDate>?");
      EXPECT_TRUE(Has(plan, search)) << plan;
      EXPECT_FALSE(Has(plan, "MULTI-INDEX OR")) << plan;
    }
  }
}

TEST_F(QueryPlan, A_unit_is_found_by_the_good) {
  const std::string plan = Plan(
      "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select ScaleID from "
      "tblGoodSaleScale Where Barcode = '123')");
  EXPECT_TRUE(Has(plan, "SEARCH tblGoodScale USING INTEGER PRIMARY KEY")) << plan;
  EXPECT_TRUE(Has(plan, "SEARCH tblGoodSaleScale USING PRIMARY KEY")) << plan;
}

TEST_F(QueryPlan, The_lines_of_a_counting_are_found_and_ordered_by_their_index) {
  const std::string plan = Plan(
      "select RowNumber, tblGood.barcode from tblInventoryCountingDetail Inner Join tblGood on "
      "tblInventoryCountingDetail.Barcode=tblGood.Barcode where CountingID =5 Order By RowNumber");
  EXPECT_TRUE(Has(plan, "SEARCH tblInventoryCountingDetail USING INDEX ixInventoryCountingDetail_Counting"))
      << plan;
  EXPECT_FALSE(Has(plan, "TEMP B-TREE")) << plan;
}

TEST_F(QueryPlan, Lines_of_a_document_are_deleted_by_their_index) {
  const std::string plan = Plan(
      "Delete tblInventoryReceiptDetail Where ReceiptID in (Select ReceiptID from tblInventoryCounting Where "
      "ID = 5)");
  EXPECT_TRUE(Has(plan, "SEARCH tblInventoryReceiptDetail USING")) << plan;
}

}  // namespace
}  // namespace koru
