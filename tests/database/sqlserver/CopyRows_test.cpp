#include "database/sqlserver/CopyRows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/odbc/ServerDialect.h"
#include "database/sqlserver/EmptyScratchDatabase.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/DumpTables.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/TestFile.h"
#include "tools/tds-stand-in/StandInServer.h"
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
  /// A connection to the suite's empty tables on a server.
  [[nodiscard]] std::unique_ptr<Database> Server() const {
    auto database = OdbcConnector().Connect(server_.ConnectionText());
    EmptyScratchDatabase(*database);
    return database;
  }
  void CopyTo(Database& to) {
    CopyRows(from_.File(), to, [this](int percent) { reported_.push_back(percent); });
  }
  TestFile from_;
  StandInServer server_;
  std::vector<int> reported_;
};

/// A server that takes everything.
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

TEST_F(CopyRowsTest, Every_row_arrives_as_it_was_with_its_key) {
  from_.Execute(kRows);
  const auto database = Server();
  CopyTo(*database);
  EXPECT_EQ(DumpTables(*database), from_.Dump());
  EXPECT_EQ(reported_.front(), 0);
  EXPECT_EQ(reported_.back(), 100);
}

TEST_F(CopyRowsTest, An_empty_database_copies_nothing_and_is_done) {
  Taker server;
  CopyTo(server);
  EXPECT_TRUE(server.taken.empty());
  EXPECT_EQ(reported_, std::vector<int>{100});
}

TEST_F(CopyRowsTest, Keys_that_a_server_gives_by_itself_are_put_in_between_on_and_off) {
  from_.Execute(kRows);
  Taker server;
  CopyTo(server);
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
  const auto database = Server();
  CopyTo(*database);
  EXPECT_EQ(DumpTables(*database), from_.Dump());
  database->Open(SqlText("insert into tblInventoryCounting (Code) values (NULL)"));
  database->Open(SqlText("insert into tblInventoryReceipt (Code) values (NULL)"));
  const auto last = [&](FixedSql select) { return database->Open(SqlText(select)).Field("ID").Integer(); };
  EXPECT_EQ(last("select max(ID) as ID from tblInventoryCounting"), 13);
  EXPECT_EQ(last("select max(ID) as ID from tblInventoryReceipt"), 8);

  Taker server;
  CopyTo(server);
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
  CopyTo(server);
  ASSERT_EQ(server.taken.size(), 3U);
  for (const std::string& statement : server.taken) {
    EXPECT_LE(std::count(statement.begin(), statement.end(), '('), 1001) << statement.substr(0, 80);
  }
  EXPECT_EQ(reported_, (std::vector<int>{0, 41, 83, 100}));
}

TEST_F(CopyRowsTest, The_sample_is_copied_in_the_dialect_of_the_server) {
  const std::string sample = from_.Folder().File("sample.db");
  CreateSample(sample, {});
  Taker server;
  CopyRows(sample, server, {});
  EXPECT_GT(server.taken.size(), 30U);
  for (const std::string& statement : server.taken) {
    EXPECT_EQ(BrokenRules(ServerStatement(statement)), std::vector<std::string>{})
        << statement.substr(0, 200);
  }
}

TEST_F(CopyRowsTest, A_failing_statement_ends_it_and_what_was_before_stays) {
  from_.Execute(kRows);
  const auto server = Server();
  OdbcConnector odbc;
  FailingConnector failing(odbc);
  const auto database = failing.Connect(server_.ConnectionText());
  failing.Plan().FailAt(2);
  EXPECT_THROW(CopyTo(*database), DatabaseError);
  EXPECT_EQ(failing.Plan().Count(), 2);
  EXPECT_NE(DumpTables(*server), "");
}

}  // namespace
}  // namespace koru::test
