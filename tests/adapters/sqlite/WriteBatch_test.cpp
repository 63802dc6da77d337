#include <gtest/gtest.h>

#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

SqlText InsertUser(int id) { return SqlText("insert into tblUser (ID,FullName) values (") + id + ",'x')"; }

class InAWriteBatch : public testing::Test {
 protected:
  std::string Users() {
    return database_.Scalar("select group_concat(ID) from (select ID from tblUser order by ID)");
  }
  /// The database gives the transaction up when that user is inserted, as it does on some disk errors.
  void GiveUpAtUser3() {
    database_.Execute(
        "create trigger GiveUp before insert on tblUser when new.ID = 3 begin select raise(rollback, 'disk "
        "trouble'); end");
    connection_ = connector_.Connect(database_.ConnectionText());
  }

  test::TestFile database_;
  SqliteConnector connector_{std::chrono::milliseconds(0)};
  std::unique_ptr<Database> connection_ = connector_.Connect(database_.ConnectionText());
};

TEST_F(InAWriteBatch, Others_see_all_statements_when_it_ends_and_none_before) {
  const auto batch = connection_->BeginWriteBatch();
  connection_->Open(InsertUser(1));
  connection_->Open(InsertUser(2));
  EXPECT_EQ(Users(), "NULL");
  EXPECT_EQ(connection_->Open(SqlText("select ID from tblUser")).RecordCount(), 2U);
  batch->Finish();
  EXPECT_EQ(Users(), "1,2");
}

TEST_F(InAWriteBatch, A_failing_statement_leaves_what_was_written_before_it) {
  try {
    const auto batch = connection_->BeginWriteBatch();
    connection_->Open(InsertUser(1));
    connection_->Open(SqlText("insert into tblUser (ID,FullName) values (2,'x'),(1,'y')"));
    batch->Finish();
    ADD_FAILURE();
  } catch (const DatabaseError&) {
  }
  EXPECT_EQ(Users(), "1");
}

TEST_F(InAWriteBatch, The_outermost_counts) {
  const auto outer = connection_->BeginWriteBatch();
  {
    const auto inner = connection_->BeginWriteBatch();
    connection_->Open(InsertUser(1));
    inner->Finish();
  }
  EXPECT_EQ(Users(), "NULL");
  connection_->Open(InsertUser(2));
  outer->Finish();
  outer->Finish();
  EXPECT_EQ(Users(), "1,2");
}

TEST_F(InAWriteBatch, A_second_batch_may_follow_the_first) {
  connection_->BeginWriteBatch()->Finish();
  const auto second = connection_->BeginWriteBatch();
  connection_->Open(InsertUser(3));
  second->Finish();
  EXPECT_EQ(Users(), "3");
}

TEST_F(InAWriteBatch, Another_writer_finds_the_file_locked) {
  const auto batch = connection_->BeginWriteBatch();
  const auto other = connector_.Connect(database_.ConnectionText());
  EXPECT_THROW(other->Open(InsertUser(1)), DatabaseError);
  EXPECT_THROW((void)other->BeginWriteBatch(), DatabaseError);
  batch->Finish();
  other->BeginWriteBatch()->Finish();
}

TEST_F(InAWriteBatch, A_transaction_that_the_database_gave_up_is_reported_at_the_statement_and_at_the_end) {
  GiveUpAtUser3();
  const auto batch = connection_->BeginWriteBatch();
  connection_->Open(InsertUser(1));
  try {
    connection_->Open(InsertUser(3));
    ADD_FAILURE();
  } catch (const DatabaseError& error) {
    EXPECT_NE(error.ServerText().find("از دست رفت"), std::string::npos);
    EXPECT_NE(error.ServerText().find("disk trouble"), std::string::npos);
    EXPECT_EQ(error.Statement(), InsertUser(3).Text());
  }
  EXPECT_THROW(batch->Finish(), DatabaseError);
  EXPECT_EQ(Users(), "NULL");
  connection_->Open(InsertUser(4));
  EXPECT_EQ(Users(), "4");
}

TEST_F(InAWriteBatch, After_the_database_gave_up_the_transaction_no_later_statement_is_stored) {
  GiveUpAtUser3();
  const auto batch = connection_->BeginWriteBatch();
  connection_->Open(InsertUser(1));
  EXPECT_THROW(connection_->Open(InsertUser(3)), DatabaseError);
  try {
    connection_->Open(InsertUser(4));
    ADD_FAILURE() << "a statement of a lost batch must not be stored by itself";
  } catch (const DatabaseError& error) {
    EXPECT_NE(error.ServerText().find("ثبت نشد"), std::string::npos) << error.ServerText();
    EXPECT_EQ(error.Statement(), InsertUser(4).Text());
  }
  EXPECT_THROW(connection_->Open(SqlText("select ID from tblUser")), DatabaseError);
  EXPECT_THROW(batch->Finish(), DatabaseError);
  EXPECT_EQ(Users(), "NULL");
  connection_->Open(InsertUser(5));
  EXPECT_EQ(Users(), "5");
}

TEST_F(InAWriteBatch, The_statement_that_fails_on_the_way_keeps_the_earlier_ones) {
  for (int failing = 1; failing <= 4; ++failing) {
    database_.Execute("delete from tblUser");
    test::FailingConnector failingConnector(connector_);
    const auto failingConnection = failingConnector.Connect(database_.ConnectionText());
    failingConnector.Plan().FailAt(failing);
    try {
      const auto batch = failingConnection->BeginWriteBatch();
      for (int id = 1; id <= 3; ++id) failingConnection->Open(InsertUser(id));
      batch->Finish();
      EXPECT_EQ(failing, 4);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Statement(), InsertUser(failing).Text());
    }
    EXPECT_EQ(database_.Scalar("select count(*) from tblUser"), std::to_string(failing - 1));
  }
}

}  // namespace
}  // namespace koru
