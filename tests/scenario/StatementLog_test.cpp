#include "scenario/StatementLog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/Schema.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

class StatementLogTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string file = (folder_.Path() / "a.db").string();
    CreateDatabaseFile(file, EmbeddedSchema());
    database_ = log_.Connect("Provider=SQLite;Data Source=" + file);
  }

  TemporaryFolder folder_;
  SqliteConnector databases_;
  StatementLog log_{databases_};
  std::unique_ptr<Database> database_;
};

TEST_F(StatementLogTest, Statements_and_calls_are_kept_in_the_order_in_which_they_were_sent) {
  static_cast<void>(database_->Open(SqlText("Select ID from tblUser")));
  EXPECT_EQ(database_->Call("spPelinHasPermission", {3, 806}), 0);
  EXPECT_EQ(log_.Statements(), (std::vector<std::string>{"Select ID from tblUser",
                                                         "{? = CALL spPelinHasPermission( 3, 806 ) }"}));
  log_.Forget();
  EXPECT_TRUE(log_.Statements().empty());
}

TEST_F(StatementLogTest, The_statement_that_is_to_fail_is_not_sent_and_the_next_one_is) {
  log_.FailStatement(2, "the line is dead");
  static_cast<void>(database_->Open(SqlText("Select ID from tblUser")));
  EXPECT_TRUE(log_.FailureIsPending());
  try {
    static_cast<void>(database_->Open(SqlText("insert into tblUser(ID,FullName) values(1,'a')")));
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.ServerText(), "the line is dead");
    EXPECT_EQ(error.Statement(), "insert into tblUser(ID,FullName) values(1,'a')");
  }
  EXPECT_FALSE(log_.FailureIsPending());
  EXPECT_EQ(database_->Open(SqlText("Select ID from tblUser")).RecordCount(), 0U);
}

}  // namespace
}  // namespace koru
