#include "database/sqlserver/CopyRows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/odbc/ServerDialect.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestFile.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

constexpr const char* kRows = R"(
insert into tblUser (ID, FullName) values (1, 'علي ''رضا'''), (2, 'می‌شود 🙂'), (3, '');
insert into tblGood (Barcode, Name, RetailPrice, TotalQty) values ('', 'x', NULL, 0.25), ('6260', 'y', 1500, -2.5E-7);
insert into tblInventoryReceipt (ID, CreateDate) values (7, '2024-03-02');
insert into tblInventoryCounting (ID, Code) values (3, NULL), (12, 1);
)";

class CopyRowsTest : public testing::Test {
 protected:
  void CopyTo(Database& to, RowsTarget target) {
    CopyRows(from_.File(), to, target, [this](int percent) { told_.push_back(percent); });
  }
  TestFile from_;
  TestFile to_;
  std::vector<int> told_;
};

TEST_F(CopyRowsTest, Every_row_arrives_as_it_was_with_its_key) {
  from_.Execute(kRows);
  const auto database = OdbcConnector().Connect(EmbeddedThroughOdbcText(to_.File()));
  CopyTo(*database, RowsTarget::EmbeddedFile);
  EXPECT_EQ(to_.Dump(), from_.Dump());
  EXPECT_EQ(told_.front(), 0);
  EXPECT_EQ(told_.back(), 100);
}

TEST_F(CopyRowsTest, The_sample_is_the_same_through_odbc) {
  const std::string sample = from_.Folder().File("sample.db");
  CreateSample(sample, {});
  const auto database = OdbcConnector().Connect(EmbeddedThroughOdbcText(to_.File()));
  CopyRows(sample, *database, RowsTarget::EmbeddedFile, {});
  from_.Execute("attach '" + sample + "' as sample");
  for (const char* table :
       {"tblInventory", "tblGood", "tblInventoryReceipt", "tblInventoryReceiptDetail",
        "tblInventoryDispatchDetail", "tblInventoryCounting", "tblInventoryCountingDetail"}) {
    from_.Execute(std::string("insert into ") + table + " select * from sample." + table);
    EXPECT_EQ(from_.Rows(std::string("select * from ") + table),
              to_.Rows(std::string("select * from ") + table))
        << table;
    EXPECT_NE(to_.Scalar(std::string("select count(*) from ") + table), "0") << table;
  }
}

TEST_F(CopyRowsTest, An_empty_database_copies_nothing_and_is_done) {
  SqliteConnector sqlite;
  RecordingConnector recording(sqlite);
  CopyTo(*recording.Connect(to_.ConnectionText()), RowsTarget::EmbeddedFile);
  EXPECT_TRUE(recording.Statements().empty());
  EXPECT_EQ(told_, std::vector<int>{100});
}

/// A server that accepts every statement.
class Taker : public Database {
 public:
  Recordset Open(const SqlText& statement) override {
    taken.push_back(statement.Text());
    CheckTypedSpans(statement);
    return {};
  }
  std::int32_t Call(std::string_view, const std::vector<std::int32_t>&) override { return 0; }
  std::unique_ptr<WriteBatch> BeginWriteBatch() override { return nullptr; }

  std::vector<std::string> taken;
};

TEST_F(CopyRowsTest, Keys_that_a_server_gives_by_itself_are_put_in_between_on_and_off) {
  from_.Execute(kRows);
  Taker server;
  CopyTo(server, RowsTarget::Server);
  const auto has = [&](const std::string& statement) {
    return std::count(server.taken.begin(), server.taken.end(), statement) == 1;
  };
  EXPECT_TRUE(
      has("set identity_insert tblInventoryReceipt on insert into tblInventoryReceipt (ID,Code,"
          "InventoryID,CreatorID,ReceiveDate,FarsiReceiveDate,CreateDate,FarsiCreateDate,Notes) values "
          "(7,NULL,NULL,NULL,NULL,NULL,'2024-03-02',NULL,NULL) set identity_insert tblInventoryReceipt "
          "off"));
  EXPECT_TRUE(has(
      "insert into tblUser (ID,FullName) values (1,'علي ''رضا'''),(2,'می‌شود 🙂'),(3,'')"));
}

TEST_F(CopyRowsTest, The_key_of_a_deleted_document_is_not_given_again) {
  from_.Execute(kRows);
  from_.Execute("delete from tblInventoryCounting where ID = 12");
  from_.Execute("delete from tblInventoryReceipt");
  const auto database = OdbcConnector().Connect(EmbeddedThroughOdbcText(to_.File()));
  CopyTo(*database, RowsTarget::EmbeddedFile);
  EXPECT_EQ(to_.Dump(), from_.Dump());
  to_.Execute("insert into tblInventoryCounting (Code) values (NULL)");
  to_.Execute("insert into tblInventoryReceipt (Code) values (NULL)");
  EXPECT_EQ(to_.Scalar("select max(ID) from tblInventoryCounting"), "13");
  EXPECT_EQ(to_.Scalar("select max(ID) from tblInventoryReceipt"), "8");

  Taker server;
  CopyTo(server, RowsTarget::Server);
  const auto insert = std::find(server.taken.begin(), server.taken.end(),
                                "set identity_insert tblInventoryReceipt on insert into tblInventoryReceipt "
                                "(ID) values (7) set identity_insert tblInventoryReceipt off");
  ASSERT_LT(insert, server.taken.end() - 1);
  EXPECT_EQ(*(insert + 1), "delete tblInventoryReceipt where ID=7");
}

TEST_F(CopyRowsTest, A_statement_never_has_more_rows_than_a_server_takes) {
  from_.Execute(
      "insert into tblUser (ID, FullName) select value, 'u' from (with recursive n(value) as (select 1 union "
      "all select value + 1 from n where value < 1201) select value from n)");
  Taker server;
  CopyTo(server, RowsTarget::Server);
  ASSERT_EQ(server.taken.size(), 3U);
  for (const std::string& statement : server.taken) {
    EXPECT_LE(std::count(statement.begin(), statement.end(), '('), 1001) << statement.substr(0, 80);
  }
  EXPECT_EQ(told_, (std::vector<int>{0, 41, 83, 100}));
}

TEST_F(CopyRowsTest, The_sample_is_copied_in_the_dialect_of_the_server) {
  const std::string sample = from_.Folder().File("sample.db");
  CreateSample(sample, {});
  Taker server;
  CopyRows(sample, server, RowsTarget::Server, {});
  ServerDialect dialect;
  EXPECT_GT(server.taken.size(), 30U);
  for (const std::string& statement : server.taken) {
    EXPECT_EQ(BrokenRules(dialect.Write(statement).text), std::vector<std::string>{})
        << statement.substr(0, 200);
  }
}

TEST_F(CopyRowsTest, A_failing_statement_ends_it_and_what_was_before_stays) {
  from_.Execute(kRows);
  SqliteConnector sqlite;
  FailingConnector failing(sqlite);
  const auto database = failing.Connect(to_.ConnectionText());
  failing.Plan().FailAt(2);
  EXPECT_THROW(CopyTo(*database, RowsTarget::EmbeddedFile), DatabaseError);
  EXPECT_EQ(failing.Plan().Count(), 2);
  EXPECT_NE(to_.Dump(), "");
}

}  // namespace
}  // namespace koru::test
