#include "host/play/StoryDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/sqlserver/SqlServerSchema.h"
#include "host/TemporaryFolder.h"
#include "platform/Errors.h"
#include "tests/adapters/odbc/ScriptedServer.h"

namespace koru {
namespace {

using test::ScriptedServer;
using Answer = ScriptedServer::Answer;
using Contents = StoryDatabase::Contents;
using Way = StoryRoute::Way;

class StoryDatabaseTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(StoryDatabaseTest, The_same_file_is_reached_either_way) {
  for (const Way way : {Way::EmbeddedFile, Way::ThroughOdbc}) {
    const TemporaryFolder folder;
    StoryDatabase database({way, {}}, Contents::Sample, folder.Path());
    database.Run("update tblUser set FullName='مينا' where ID=1");
    const Recordset names = database.Run("select top 1 FullName from tblUser where FullName='مینا'");
    EXPECT_EQ(names.Field("FullName").Text(), "مينا");
    const std::string provider = way == Way::ThroughOdbc ? "Provider=ODBC;" : "Provider=SQLite;";
    EXPECT_TRUE(database.ConnectionText().starts_with(provider)) << database.ConnectionText();
  }
}

TEST_F(StoryDatabaseTest, A_marked_server_is_emptied_filled_with_the_sample_and_asked_in_national_texts) {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    const bool isMark = statement.find("name='tblKoruScratch'") != std::string::npos;
    return isMark ? Answer{Answer::Kind::Number, 1, "Name"} : Answer{};
  };
  const ScriptedServer server(script);
  StoryDatabase database({Way::Server, server.ConnectionText()}, Contents::Sample, folder_.Path());
  EXPECT_EQ(database.ConnectionText(), server.ConnectionText());
  database.Run("update tblUser set FullName='مينا' where ID=1");
  const auto statements = server.Statements();
  const auto tables = static_cast<std::ptrdiff_t>(SuiteTables().size());
  ASSERT_GT(statements.size(), SuiteTables().size() + 3);
  EXPECT_TRUE(std::all_of(statements.begin() + 2, statements.begin() + 2 + tables,
                          [](const std::string& sent) { return sent.starts_with("truncate table "); }));
  EXPECT_NE(statements[2 + SuiteTables().size()].find("insert into "), std::string::npos);
  EXPECT_EQ(statements.back(), "update tblUser set FullName=N'مينا' where ID=1");
}

TEST_F(StoryDatabaseTest, A_server_with_somebodys_tables_is_left_alone) {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    const bool isSuite = statement.find("'tblGood'") != std::string::npos;
    return isSuite ? Answer{Answer::Kind::Number, 1, "Name"} : Answer{};
  };
  const ScriptedServer server(script);
  EXPECT_THROW(StoryDatabase({Way::Server, server.ConnectionText()}, Contents::Empty, folder_.Path()),
               InputError);
  EXPECT_EQ(server.Statements().size(), 3U);  // the session's settings, and two questions
}

}  // namespace
}  // namespace koru
