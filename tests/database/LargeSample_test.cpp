#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/Sample.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

class MediumSample : public testing::Test {
 protected:
  MediumSample() {
    CreateSample(file_, SampleSize::Medium, [this](int percent) { reported_.push_back(percent); });
  }
  std::int64_t Number(const std::string& sql) {
    return SqliteConnection(file_, SqliteConnection::Mode::Existing, std::chrono::seconds(0)).Number(sql);
  }
  TemporaryFolder folder_;
  std::string file_ = folder_.File("medium.koru");
  std::vector<int> reported_;
};

TEST_F(MediumSample, Holds_a_tenth_of_the_largest_counting_and_of_what_it_is_calculated_from) {
  EXPECT_EQ(Number("select count(*) from tblInventory"), 20);
  EXPECT_EQ(Number("select count(*) from tblInventoryParent where ID = 1"), 8);
  EXPECT_EQ(Number("select count(*) from tblGood"), 3'300);
  EXPECT_EQ(
      Number(
          "select (select count(*) from tblInventoryReceipt) + (select count(*) from tblInventoryDispatch)"),
      20'000);
  EXPECT_EQ(Number("select (select count(*) from tblInventoryReceiptDetail) + (select count(*) from "
                   "tblInventoryDispatchDetail)"),
            200'000);
  EXPECT_EQ(Number("select count(*) from tblInventoryCountingDetail where CountingID = 1"), 3'276);
  const std::int64_t registered = Number("select count(Code) from tblInventoryReceipt");
  EXPECT_GT(registered, 8'800);
  EXPECT_LT(registered, 9'200);
}

TEST_F(MediumSample, Goods_move_unevenly) {
  const std::string lines =
      " from (select count(*) as n from tblInventoryReceiptDetail group by Barcode order by n";
  EXPECT_GT(Number("select sum(n)" + lines + " desc limit 330)"), 30'000);
  EXPECT_LT(Number("select sum(n)" + lines + " limit 330)"), 1'000);
}

TEST_F(MediumSample, Its_counting_says_what_its_documents_say) {
  EXPECT_EQ(
      Number(
          "select count(*) from tblInventoryCountingDetail as line where SystemCounting <> ("
          "select ifnull(sum(Qty), 0) from tblInventoryReceiptDetail cross join tblInventoryReceipt on ID = "
          "ReceiptID "
          "where ltrim(rtrim(Barcode)) = (line.Barcode || '') collate KORU and Code is not null and "
          "InventoryID <= 9 "
          "and ReceiveDate >= '2025-03-21') - ("
          "select ifnull(sum(Qty), 0) from tblInventoryDispatchDetail cross join tblInventoryDispatch on ID "
          "= "
          "DispatchID where ltrim(rtrim(Barcode)) = (line.Barcode || '') collate KORU and Code is not null "
          "and "
          "InventoryID <= 9 and ReceiveDate >= '2025-03-21')"),
      0);
}

TEST_F(MediumSample, Is_sound_has_all_indexes_and_reports_its_progress) {
  EXPECT_EQ(Number("select integrity_check = 'ok' from pragma_integrity_check"), 1);
  EXPECT_EQ(Number("select count(*) from sqlite_schema where type = 'index' and name like 'ix%'"), 9);
  EXPECT_EQ(reported_.front(), 0);
  EXPECT_EQ(reported_.back(), 100);
  EXPECT_TRUE(std::is_sorted(reported_.begin(), reported_.end()));
}

}  // namespace
}  // namespace koru::test
