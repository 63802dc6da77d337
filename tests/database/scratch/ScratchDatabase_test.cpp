#include "database/scratch/ScratchDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/Sample.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestFile.h"
#include "tests/tools/tds-stand-in/ScriptedServer.h"

namespace koru::test {
namespace {

using Answer = ScriptedServer::Answer;
using Statements = std::vector<std::string>;

/// A server whose database is a scratch database, and takes everything.
ScriptedServer::Script Marked() {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    const bool isMark = statement.find("name='tblKoruScratch'") != std::string::npos;
    return isMark ? OneField("Name", 1) : Answer{};
  };
  return script;
}

Statements Last(const ScriptedServer& server, std::size_t count) {
  const Statements all = server.StatementsOfCallers();
  return {all.end() - static_cast<std::ptrdiff_t>(count), all.end()};
}

TEST(ScratchDatabase, Without_a_server_the_file_itself_is_used) {
  const TestFile file;
  ScratchDatabase database(file.File());
  database.RunAll(
      "insert into tblUser (ID,FullName) values (1,'علي');;\n update tblUser set FullName='a;مينا'; ");
  EXPECT_EQ(database.Run("select top 1 FullName from tblUser where FullName='a;مینا'").RecordCount(), 1U);
  EXPECT_EQ(database.ConnectionText(), file.ConnectionText());
  EXPECT_EQ(database.Connector().Connect(database.ConnectionText())->Call("spPelinHasPermission", {1, 2}), 0);
  EXPECT_FALSE(database.IsOnServer());
}

TEST(ScratchDatabase, Of_several_statements_those_before_the_one_that_fails_stay) {
  const TestFile file;
  ScratchDatabase database(file.File());
  EXPECT_THROW(
      database.RunAll("insert into tblUser (FullName) values ('a'); insert into tblNobody (ID) values (1);"
                      "insert into tblUser (FullName) values ('b')"),
      DatabaseError);
  EXPECT_EQ(database.Run("select ID from tblUser").RecordCount(), 1U);
}

TEST(ScratchDatabase, A_marked_server_is_emptied_filled_with_the_rows_and_asked_in_national_texts) {
  const TemporaryFolder folder;
  CreateSample(folder.File("sample.db"), {});
  const ScriptedServer server(Marked());
  ScratchDatabase database(folder.File("sample.db"), server.ConnectionText());
  EXPECT_EQ(database.ConnectionText(), server.ConnectionText());
  database.Run("update tblUser set FullName='مينا' where ID=1");
  const Statements statements = server.StatementsOfCallers();
  const auto tables = static_cast<std::ptrdiff_t>(SuiteTables().size());
  ASSERT_GT(statements.size(), SuiteTables().size() + 3);
  EXPECT_TRUE(std::all_of(statements.begin() + 2, statements.begin() + 2 + tables,
                          [](const std::string& sent) { return sent.starts_with("truncate table "); }));
  EXPECT_NE(statements[2 + SuiteTables().size()].find("insert into "), std::string::npos);
  EXPECT_EQ(statements.back(), "update tblUser set FullName=N'مينا' where ID=1");
}

TEST(ScratchDatabase, Rows_may_bring_the_keys_that_a_server_gives) {
  const TestFile file;
  const ScriptedServer server(Marked());
  ScratchDatabase database(file.File(), server.ConnectionText());
  EXPECT_TRUE(database.IsOnServer());
  database.RunAll(
      "insert into tblInventoryReceipt (Code, id) values (1, 7);"
      "insert into tblInventoryReceipt (Code) values (1);"
      "insert into tblUser (ID, FullName) values (1, 'a');"
      "insert into tblInventoryReceiptDetail (ReceiptID, Barcode) select ID, 'x' from tblInventoryReceipt");
  EXPECT_EQ(
      Last(server, 4),
      (Statements{"set identity_insert tblInventoryReceipt on insert into tblInventoryReceipt (Code, id) "
                  "values (1, 7) set identity_insert tblInventoryReceipt off",
                  "insert into tblInventoryReceipt (Code) values (1)",
                  "insert into tblUser (ID, FullName) values (1, 'a')",
                  "insert into tblInventoryReceiptDetail (ReceiptID, Barcode) select ID, 'x' from "
                  "tblInventoryReceipt"}));
}

TEST(ScratchDatabase, A_server_with_somebodys_tables_is_left_alone) {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    const bool isSuite = statement.find("'tblGood'") != std::string::npos;
    return isSuite ? OneField("Name", 1) : Answer{};
  };
  const TestFile file;
  const ScriptedServer server(script);
  EXPECT_THROW(ScratchDatabase(file.File(), server.ConnectionText()), InputError);
  EXPECT_EQ(server.StatementsOfCallers().size(), 3U);  // the session's settings, and two questions
}

}  // namespace
}  // namespace koru::test
