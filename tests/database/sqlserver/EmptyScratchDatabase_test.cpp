#include "database/sqlserver/EmptyScratchDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/sqlserver/SqlServerSchema.h"
#include "platform/text/Errors.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

/// A server with the suite's tables and optionally the mark of a scratch database.
class ServerWith : public Database {
 public:
  ServerWith(bool tables, bool mark) : tables_(tables), mark_(mark) {}

  Recordset Open(const SqlText& statement) override {
    const std::string& text = statement.Text();
    EXPECT_EQ(BrokenRules(text), std::vector<std::string>{}) << text;
    if (text == "select db_name() as DatabaseName") {
      Recordset named({"DatabaseName"});
      named.AppendText(name);
      return named;
    }
    if (!text.starts_with("select name as Name from sys.objects")) {
      changes.push_back(text);
      return {};
    }
    Recordset found({"Name"});
    const bool isMark = text.find("tblKoruScratch") != std::string::npos;
    if (isMark ? mark_ : tables_) found.AppendText(isMark ? "tblKoruScratch" : "tblGood");
    return found;
  }
  std::int32_t Call(std::string_view, const std::vector<std::int32_t>&) override { return 0; }
  std::unique_ptr<WriteBatch> BeginWriteBatch() override { return nullptr; }

  std::string name = "scratch";  ///< of the database
  std::vector<std::string> changes;

 private:
  bool tables_;
  bool mark_;
};

TEST(ScratchDatabase, A_database_with_data_of_somebody_is_refused_and_left_alone) {
  ServerWith server(true, false);
  EXPECT_THROW(EmptyScratchDatabase(server), InputError);
  EXPECT_TRUE(server.changes.empty());
}

TEST(ScratchDatabase, One_of_the_servers_own_is_refused_with_a_mark_as_well) {
  for (const bool mark : {false, true}) {
    ServerWith server(mark, mark);
    server.name = "master";
    EXPECT_THROW(EmptyScratchDatabase(server), InputError);
    EXPECT_TRUE(server.changes.empty());
  }
}

TEST(ScratchDatabase, An_empty_database_gets_the_tables_and_the_mark) {
  ServerWith server(false, false);
  EmptyScratchDatabase(server);
  EXPECT_EQ(server.changes.size(), SqlServerBatches().size() + 1);
  EXPECT_EQ(server.changes.back(), "create table tblKoruScratch (ID int null)");
}

TEST(ScratchDatabase, A_marked_one_loses_the_rows_of_every_table_and_nothing_else) {
  ServerWith server(true, true);
  EmptyScratchDatabase(server);
  std::vector<std::string> expected;
  for (const std::string& table : SuiteTables()) expected.push_back("truncate table " + table);
  EXPECT_EQ(server.changes, expected);
  EXPECT_EQ(std::count(expected.begin(), expected.end(), "truncate table tblInventoryCounting"), 1);
}

}  // namespace
}  // namespace koru::test
