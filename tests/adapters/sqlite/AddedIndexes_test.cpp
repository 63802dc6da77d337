#include "adapters/sqlite/AddedIndexes.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

constexpr const char* kIndexes = "select name, sql from sqlite_schema where type = 'index' order by name";

/// A database file of an earlier version, which lacks the indexes.
class AFileOfAnEarlierVersion : public testing::Test {
 protected:
  AFileOfAnEarlierVersion() {
    database_.Execute("drop index ixInventoryReceiptDetail_Rate; drop index ixInventoryDispatchDetail_Rate");
  }
  std::string Added() {
    return database_.Scalar("select count(*) from sqlite_schema where type = 'index' and name like '%Rate'");
  }
  std::unique_ptr<Database> Connect() { return connector_.Connect(database_.ConnectionText()); }

  test::TestFile database_;
  SqliteConnector connector_{std::chrono::seconds(60)};
};

TEST_F(AFileOfAnEarlierVersion, Has_the_indexes_of_a_new_file_after_its_first_calculation) {
  const auto connection = Connect();
  EXPECT_EQ(Added(), "0") << "opening changes nothing";
  (void)connection->BeginReadSnapshot();
  test::TestFile fresh;
  EXPECT_EQ(database_.Rows(kIndexes), fresh.Rows(kIndexes));
}

TEST_F(AFileOfAnEarlierVersion, Gets_the_one_index_that_it_lacks) {
  database_.Execute(
      "create index ixInventoryReceiptDetail_Rate on tblInventoryReceiptDetail (Barcode, "
      "ReceiptID, Value)");
  (void)Connect()->BeginReadSnapshot();
  EXPECT_EQ(Added(), "2");
}

TEST_F(AFileOfAnEarlierVersion, Calculates_at_once_while_another_program_writes_and_gets_the_indexes_later) {
  const auto connection = Connect();
  {
    const auto writer = Connect();
    const auto batch = writer->BeginWriteBatch();
    // Waiting for the lock would take a minute here.
    const auto snapshot = connection->BeginReadSnapshot();
    EXPECT_EQ(connection->Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
    EXPECT_EQ(Added(), "0");
    batch->Finish();
  }
  (void)connection->BeginReadSnapshot();
  EXPECT_EQ(Added(), "2");
}

TEST_F(AFileOfAnEarlierVersion, Waits_for_other_writers_as_before_when_it_has_tried) {
  SqliteConnection connection(database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(7));
  AddMissingIndexes(connection);
  EXPECT_EQ(connection.Number("PRAGMA busy_timeout"), 7000);
}

TEST_F(AFileOfAnEarlierVersion, Is_left_unchanged_where_an_index_cannot_be_created) {
  database_.Execute("drop table tblInventoryDispatchDetail");
  const auto connection = Connect();
  const auto snapshot = connection->BeginReadSnapshot();
  EXPECT_EQ(connection->Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
  EXPECT_EQ(Added(), "0") << "neither of the two";
}

TEST_F(AFileOfAnEarlierVersion, Is_left_unchanged_where_the_disk_is_full) {
  database_.Execute(
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < 2000)"
      " insert into tblInventoryReceiptDetail (ReceiptID, Barcode, Value) select i, 'good ' || i, i from n");
  SqliteConnection connection(database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  const std::int64_t pages = connection.Number("PRAGMA page_count");
  EXPECT_EQ(connection.Number("PRAGMA max_page_count=" + std::to_string(pages + 3)), pages + 3);
  AddMissingIndexes(connection);
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(Added(), "0");
  EXPECT_EQ(database_.Scalar("PRAGMA integrity_check"), "ok");
}

TEST_F(AFileOfAnEarlierVersion, Answers_the_same_with_and_without_the_indexes) {
  database_.Execute(
      "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,1,'2024-01-01');"
      "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'A',1,3),(1,'a ',1,4)");
  const SqlText rate(
      "Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where ID=ReceiptID "
      "and Barcode='A' and Isnull(Value,0)>0 and Code is not NULL Order By ReceiveDate Desc");
  const auto connection = Connect();
  EXPECT_EQ(connection->Open(rate).RecordCount(), 2U);
  const auto snapshot = connection->BeginReadSnapshot();
  EXPECT_EQ(connection->Open(rate).RecordCount(), 2U);
}

}  // namespace
}  // namespace koru
