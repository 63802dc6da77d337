#include <gtest/gtest.h>

#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

/// How SQLite would run a statement, step by step.
std::string PlanOf(TestFile& database, const std::string& sql) {
  return database.Rows("explain query plan " + sql);
}

}  // namespace

TEST(Indexes, Sums_of_a_good_read_one_index_and_no_table) {
  TestFile database;
  const auto check = [&database](const std::string& kind) {
    const std::string lines = "tblInventory" + kind + "Detail";
    EXPECT_NE(
        PlanOf(database, "select sum(Qty) from " + lines + " where ltrim(rtrim(Barcode)) = 'a' collate KORU" +
                             " and exists (select 1 from tblInventory" + kind + " where ID = " + kind + "ID)")
            .find("USING COVERING INDEX ix" + lines.substr(3) + "_Barcode"),
        std::string::npos)
        << kind;
  };
  for (const char* kind : {"Receipt", "Dispatch"}) check(kind);
}

TEST(Indexes, A_rate_of_a_good_reads_one_index_and_no_table) {
  TestFile database;
  for (const std::string kind : {"Receipt", "Dispatch"}) {
    const std::string plan = PlanOf(database, "select Value from tblInventory" + kind +
                                                  "Detail where Barcode = 'a' and " + kind + "ID > 1");
    EXPECT_NE(plan.find("USING COVERING INDEX ixInventory" + kind + "Detail_Rate"), std::string::npos)
        << plan;
  }
}

TEST(Indexes, The_lines_of_a_counting_are_found_in_their_order) {
  TestFile database;
  const std::string plan = PlanOf(
      database, "select Barcode from tblInventoryCountingDetail where CountingID = 1 order by RowNumber");
  EXPECT_NE(plan.find("USING INDEX ixInventoryCountingDetail_Counting"), std::string::npos) << plan;
  EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << plan;
}

TEST(Indexes, No_document_statement_reads_a_whole_table) {
  TestFile database;
  for (const std::string statement :
       {"delete from tblInventoryCountingDetail where CountingID = 1",
        "delete from tblInventoryReceiptDetail where ReceiptID = 1",
        "delete from tblInventoryDispatchDetail where DispatchID = 1",
        "delete from tblInventoryReceipt where ID = 1",
        "select ScaleID from tblGoodSaleScale where Barcode = 'a'",
        "select ChildID from tblInventoryParent where ID = 1", "select Name from tblGood where Barcode = 'a'",
        "select ID from tblInventoryReceipt where InventoryID = 1 and ReceiveDate >= '2025-01-01'"}) {
    const std::string plan = PlanOf(database, statement);
    EXPECT_NE(plan.find("SEARCH"), std::string::npos) << statement << '\n' << plan;
    EXPECT_EQ(plan.find("SCAN"), std::string::npos) << statement << '\n' << plan;
  }
}

}  // namespace koru::test
