#include "database/sqlserver/CheckDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/sqlserver/NeededTables.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

using Things = std::vector<CheckedThing>;

class CheckDatabaseTest : public testing::Test {
 protected:
  [[nodiscard]] Things CheckIt() const {
    SqliteConnector connector;
    return CheckDatabase(connector, file_.ConnectionText());
  }
  static Things Failures(Things things) {
    std::erase_if(things, [](const CheckedThing& thing) { return thing.ok; });
    return things;
  }
  static std::string Names(const Things& things) {
    std::string names;
    for (const CheckedThing& thing : things) names += thing.what + "\n";
    return names;
  }

  TestFile file_;
};

TEST_F(CheckDatabaseTest, A_good_database_is_good_in_every_line_and_stays_as_it_is) {
  file_.Execute("insert into tblInventoryCounting (Code) values (1)");
  const std::string before = file_.Dump();
  const Things things = CheckIt();
  EXPECT_EQ(Names(Failures(things)), "");
  const auto writable = std::count_if(NeededTables().begin(), NeededTables().end(),
                                      [](const NeededTable& table) { return table.writes != Writes::None; });
  EXPECT_EQ(things.size(), 5 + NeededTables().size() + static_cast<std::size_t>(writable) + 2);
  EXPECT_EQ(things.back().what, "سرعت");
  EXPECT_NE(things.back().sentence.find("محاسبة 32767 رديف كمابيش "), std::string::npos);
  EXPECT_EQ(file_.Dump(), before);
}

TEST_F(CheckDatabaseTest, A_missing_table_is_named_with_the_views_that_need_it) {
  file_.Execute("drop table tblInventoryCountingDetail");
  const Things failures = Failures(CheckIt());
  EXPECT_EQ(Names(failures), "tblInventoryCountingDetail\nvwInventoryCountingPrint\n");
  EXPECT_NE(failures.at(0).sentence.find("نيست"), std::string::npos);
  EXPECT_NE(failures.at(0).sentence.find("no such table: tblInventoryCountingDetail"), std::string::npos)
      << failures.at(0).sentence;
}

TEST_F(CheckDatabaseTest, A_missing_column_is_named_and_the_rest_is_looked_at) {
  file_.Execute("alter table tblGood drop column TmpLocationID");
  const Things things = CheckIt();
  EXPECT_EQ(Names(Failures(things)), "tblGood.TmpLocationID\n");
  EXPECT_EQ(things.back().what, "spPelinHasPermission");
}

TEST_F(CheckDatabaseTest, A_table_that_may_not_be_written_is_named) {
  file_.Execute(
      "drop table tblInventoryReceiptDetail;"
      "create view tblInventoryReceiptDetail as select 1 as ReceiptID,'' as Barcode,0.0 as Qty,1 as "
      "ScaleID,0.0 as "
      "ScaleQty,'' as Description,0.0 as Value");
  const Things failures = Failures(CheckIt());
  EXPECT_EQ(Names(failures), "اجازة نوشتن tblInventoryReceiptDetail\n");
}

TEST_F(CheckDatabaseTest, A_procedure_that_fails_is_named) {
  file_.Execute("drop table tblPelinUserPermission");
  EXPECT_EQ(Names(Failures(CheckIt())), "spPelinHasPermission\n");
}

TEST_F(CheckDatabaseTest, A_wrong_driver_name_ends_the_look_at_the_driver) {
  OdbcConnector connector;
  const Things things = CheckDatabase(
      connector, "Provider=SQLOLEDB.1;Driver=No Such;Data Source=h;User ID=u;Password=topsecret");
  ASSERT_EQ(Names(things), "رشته اتصال\nراه انداز\n");
  EXPECT_TRUE(things[0].ok);
  EXPECT_FALSE(things[1].ok);
  EXPECT_NE(things[1].sentence.find("«No Such»"), std::string::npos);
  EXPECT_EQ(things[1].sentence.find("topsecret"), std::string::npos);
}

TEST_F(CheckDatabaseTest, A_missing_file_is_a_missing_database) {
  SqliteConnector connector;
  const Things things =
      CheckDatabase(connector, "Provider=SQLite;Data Source=" + file_.Folder().File("none"));
  EXPECT_EQ(Names(Failures(things)), "پايگاه داده\n");
  EXPECT_EQ(things.size(), 1U);
}

TEST_F(CheckDatabaseTest, Each_statement_that_fails_becomes_a_line_and_none_is_lost) {
  SqliteConnector sqlite;
  FailingConnector failing(sqlite);
  static_cast<void>(CheckDatabase(failing, file_.ConnectionText()));
  const int statements = failing.Plan().Count();
  for (int n = 1; n <= statements; n += 7) {
    failing.Plan().FailAt(n);
    const Things failures = Failures(CheckDatabase(failing, file_.ConnectionText()));
    ASSERT_EQ(failures.size(), 1U) << n;
    EXPECT_NE(failures[0].sentence.find(FaultPlan::kServerText), std::string::npos);
  }
}

}  // namespace
}  // namespace koru::test
