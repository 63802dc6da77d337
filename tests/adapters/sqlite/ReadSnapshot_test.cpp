#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

/// Store 1 has received 10 of the good A on a registered receipt; another receipt of 5 waits to be
/// registered.
class ReadSnapshotTest : public testing::Test {
 protected:
  ReadSnapshotTest() {
    database_.Execute(
        "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values "
        "(1,1,1,'2024-01-01'),(2,null,1,'2024-02-01');"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values "
        "(1,'A',10,100),(2,'A',5,200)");
  }

  std::string Stock(int store = 1) {
    return connection_
        ->Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                       "LTrim(RTrim(Barcode))='A' and ReceiptID in (select ID from tblInventoryReceipt where "
                       "Code is "
                       "not NULL and (InventoryID=") +
               store + "))")
        .Field("Qty")
        .Text();
  }
  /// All rates, the latest first unless `order` says otherwise.
  std::string Rates(FixedSql order = " Order By ReceiveDate Desc") {
    std::string rates;
    Recordset found = connection_->Open(
        SqlText("Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where "
                "ID=ReceiptID and Barcode='A' and Isnull(Value,0)>0 and Code is not NULL") +
        order);
    for (; !found.AtEnd(); found.MoveNext()) rates += found.Field("Value").Text() + " ";
    return rates;
  }
  /// By another connection, which does not wait.
  void RegisterTheOther() { other_->Open(SqlText("update tblInventoryReceipt set Code=2 where ID=2")); }

  test::TestFile database_;
  SqliteConnector connector_{std::chrono::milliseconds(0)};
  std::unique_ptr<Database> connection_ = connector_.Connect(database_.ConnectionText());
  std::unique_ptr<Database> other_ = connector_.Connect(database_.ConnectionText());
};

TEST_F(ReadSnapshotTest, The_first_one_lets_the_connection_keep_many_pages_for_good) {
  const auto cacheSize = [this] { return connection_->Open(SqlText("PRAGMA cache_size")).Field(0).Text(); };
  EXPECT_EQ(cacheSize(), "-2048");
  static_cast<void>(connection_->BeginReadSnapshot());
  EXPECT_EQ(cacheSize(), "-131072");
}

TEST_F(ReadSnapshotTest, Finds_what_is_found_without_it) {
  RegisterTheOther();
  EXPECT_EQ(Stock(), "15");
  EXPECT_EQ(Rates(), "200 100 ");
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "15");
  EXPECT_EQ(Rates(), "200 100 ");
}

TEST_F(ReadSnapshotTest, Finds_the_documents_of_a_store_and_its_children_once_as_without_it) {
  // The good A: a power of ten in each store. Store 7 is, wrongly, a child of its own; one document has no
  // store.
  database_.Execute(
      "delete from tblInventoryReceiptDetail; delete from tblInventoryReceipt;"
      "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,1,'2024-01-01'),"
      "(2,2,2,'2024-01-02'),(3,3,3,'2024-01-03'),(4,4,7,'2024-01-04'),(5,5,null,'2024-01-05');"
      "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values "
      "(1,'A',1,1),(2,'A',10,10),(3,'A',100,100),(4,'A',1000,1000),(5,'A',10000,10000);"
      "insert into tblInventoryParent (ID,ChildID) values (1,2),(1,3),(7,7),(7,2)");
  const auto ofStore = [](FixedSql before, int store, FixedSql after) {
    return SqlText(before) + "Code is not NULL and (InventoryID=" + store +
           " or InventoryID in (Select ChildID from tblInventoryParent Where ID=" + store + "))" + after;
  };
  const auto found = [&](int store) {
    std::string numbers;
    Recordset stock = connection_->Open(
        ofStore("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                "LTrim(RTrim(Barcode))='A' and ReceiptID in (select ID from tblInventoryReceipt where ",
                store, ")"));
    numbers = stock.Field("Qty").Text() + ":";
    Recordset rates = connection_->Open(
        ofStore("Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where "
                "ID=ReceiptID and Barcode='A' and Isnull(Value,0)>0 and ",
                store, " Order By ReceiveDate Desc"));
    for (; !rates.AtEnd(); rates.MoveNext()) numbers += " " + rates.Field("Value").Text();
    return numbers;
  };
  const std::vector<std::pair<int, std::string>> expected = {
      {1, "111: 100 10 1"}, {2, "10: 10"}, {3, "100: 100"}, {7, "1010: 1000 10"}, {8, "0:"}};
  for (const auto& [store, numbers] : expected) EXPECT_EQ(found(store), numbers) << store;
  const auto snapshot = connection_->BeginReadSnapshot();
  for (const auto& [store, numbers] : expected) EXPECT_EQ(found(store), numbers) << store;
}

TEST_F(ReadSnapshotTest, Others_write_without_waiting_and_the_snapshot_stays_at_its_moment) {
  auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  RegisterTheOther();
  EXPECT_EQ(Stock(), "10");
  EXPECT_EQ(Rates(), "100 ") << "a statement that had not been asked before is of the same moment";
  snapshot.reset();
  EXPECT_EQ(Stock(), "15");
  EXPECT_EQ(Rates(), "200 100 ");
}

TEST_F(ReadSnapshotTest, A_second_snapshot_sees_what_others_wrote_after_the_first) {
  for (const char* stock : {"10", "15"}) {
    const auto snapshot = connection_->BeginReadSnapshot();
    EXPECT_EQ(Stock(), stock);
    EXPECT_EQ(Stock(), stock);
    RegisterTheOther();
  }
}

TEST_F(ReadSnapshotTest, Its_moment_is_that_of_its_first_statement) {
  const auto snapshot = connection_->BeginReadSnapshot();
  RegisterTheOther();
  EXPECT_EQ(Stock(), "15");
}

TEST_F(ReadSnapshotTest, Other_values_are_other_documents) {
  database_.Execute("update tblInventoryReceipt set Code=2, InventoryID=7 where ID=2");
  const auto snapshot = connection_->BeginReadSnapshot();
  for (int round = 0; round < 30; ++round) {
    EXPECT_EQ(Stock(1), "10");
    EXPECT_EQ(Stock(7), "5");
    EXPECT_EQ(Stock(100 + round), "0");
  }
}

TEST_F(ReadSnapshotTest, A_write_of_our_own_inside_is_done_and_seen) {
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  connection_->Open(SqlText("update tblInventoryReceipt set Code=2 where ID=2"));
  EXPECT_EQ(Stock(), "15");
  EXPECT_EQ(database_.Scalar("select Code from tblInventoryReceipt where ID=2"), "2");
}

TEST_F(ReadSnapshotTest, A_write_inside_works_also_after_others_have_written) {
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  RegisterTheOther();
  connection_->Open(SqlText("update tblInventoryReceiptDetail set Qty=11 where ReceiptID=1"));
  EXPECT_EQ(Stock(), "16");
}

TEST_F(ReadSnapshotTest, A_write_batch_inside_works) {
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  RegisterTheOther();
  const auto written = connection_->BeginWriteBatch();
  connection_->Open(SqlText("update tblInventoryReceiptDetail set Qty=11 where ReceiptID=1"));
  EXPECT_EQ(Stock(), "16");
  written->Finish();
  EXPECT_EQ(database_.Scalar("select Qty from tblInventoryReceiptDetail where ReceiptID=1"), "11.0");
}

TEST_F(ReadSnapshotTest, Inside_a_write_batch_it_sees_what_is_being_written) {
  const auto written = connection_->BeginWriteBatch();
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  connection_->Open(SqlText("update tblInventoryReceipt set Code=2 where ID=2"));
  EXPECT_EQ(Stock(), "15");
  written->Finish();
  EXPECT_EQ(Stock(), "15");
}

TEST_F(ReadSnapshotTest, Of_nested_snapshots_the_outermost_counts) {
  const auto outer = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  connection_->BeginReadSnapshot().reset();
  RegisterTheOther();
  EXPECT_EQ(Stock(), "10");
}

TEST_F(ReadSnapshotTest, A_broken_statement_inside_leaves_the_rest_as_it_is) {
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Stock(), "10");
  EXPECT_THROW(connection_->Open(SqlText("select nothing from tblInventoryReceipt")), DatabaseError);
  RegisterTheOther();
  EXPECT_EQ(Stock(), "10");
}

TEST_F(ReadSnapshotTest,
       Documents_of_one_date_and_lines_of_one_document_come_last_entered_first_with_and_without_it) {
  database_.Execute(
      "update tblInventoryReceipt set Code=2, ReceiveDate='2024-01-01' where ID=2;"
      "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values "
      "(1,'A',1,300),(2,'A',1,150)");
  EXPECT_EQ(Rates(), "150 200 300 100 ");
  EXPECT_EQ(Rates(" Order By ReceiveDate"), "100 300 200 150 ");
  EXPECT_EQ(Rates(" Order By ReceiveDate Asc"), "100 300 200 150 ");
  const auto snapshot = connection_->BeginReadSnapshot();
  EXPECT_EQ(Rates(), "150 200 300 100 ");
  EXPECT_EQ(Rates(" Order By ReceiveDate"), "100 300 200 150 ");
  EXPECT_EQ(Rates(" Order By ReceiveDate Asc"), "100 300 200 150 ");
}

}  // namespace
}  // namespace koru
