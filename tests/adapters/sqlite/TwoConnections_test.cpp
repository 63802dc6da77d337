#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/Schema.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class TwoConnections : public testing::Test {
 protected:
  static std::size_t Users(Database& connection) {
    return connection.Open(SqlText("select ID from tblUser")).RecordCount();
  }
  test::TestFile database_;
  SqliteConnector connector_{std::chrono::milliseconds(0)};
  std::unique_ptr<Database> writer_ = connector_.Connect(database_.ConnectionText());
  std::unique_ptr<Database> reader_ = connector_.Connect(database_.ConnectionText());
};

TEST_F(TwoConnections, What_one_has_written_the_other_reads) {
  writer_->Open(SqlText("insert into tblUser (FullName) values ('x')"));
  EXPECT_EQ(Users(*reader_), 1U);
}

TEST_F(TwoConnections, A_reader_does_not_wait_for_a_write_batch) {
  const auto batch = writer_->BeginWriteBatch();
  writer_->Open(SqlText("insert into tblUser (FullName) values ('x')"));
  EXPECT_EQ(Users(*reader_), 0U);
  batch->Finish();
  EXPECT_EQ(Users(*reader_), 1U);
}

TEST_F(TwoConnections, A_recordset_that_is_still_looked_at_keeps_nobody_from_writing) {
  writer_->Open(SqlText("insert into tblUser (FullName) values ('a'),('b')"));
  Recordset users = reader_->Open(SqlText("select ID,FullName from tblUser order by ID"));
  writer_->Open(SqlText("delete tblUser"));
  database_.Execute("drop table tblUser");
  EXPECT_EQ(users.RecordCount(), 2U);
  users.MoveNext();
  EXPECT_EQ(users.Field("FullName").Text(), "b");
}

TEST_F(TwoConnections, A_kept_statement_notices_that_a_table_has_changed) {
  EXPECT_EQ(Users(*reader_), 0U);
  database_.Execute("alter table tblUser add column Nick text");
  writer_->Open(SqlText("insert into tblUser (FullName,Nick) values ('a','b')"));
  const Recordset users = reader_->Open(SqlText("select * from tblUser"));
  EXPECT_EQ(users.Field("Nick").Text(), "b");
}

class OpenFile : public TwoConnections {
 protected:
  [[nodiscard]] std::string NewFile() const {
    std::string file = folder_.File("a.koru");
    CreateDatabaseFile(file, EmbeddedSchema());
    return file;
  }
  static void Write(Database& connection) {
    connection.Open(SqlText("insert into tblUser (FullName) values ('x')"));
  }
  /// The users in a copy of the main file alone, without its log.
  std::size_t UsersInCopy() {
    const std::string copy = folder_.File("copy.koru");
    std::filesystem::remove(copy);
    std::filesystem::copy_file(file_, copy);
    return Users(*connector_.Connect(EmbeddedConnectionText(copy)));
  }

  test::TemporaryFolder folder_;
  std::string file_ = NewFile();
  std::unique_ptr<Database> first_ = connector_.Connect(EmbeddedConnectionText(file_));
  std::unique_ptr<Database> second_ = connector_.Connect(EmbeddedConnectionText(file_));
};

TEST_F(OpenFile, Is_whole_in_a_plain_copy_once_the_program_is_idle) {
  Write(*first_);
  EXPECT_EQ(UsersInCopy(), 0U) << "the row is in the log";
  first_->Idle();
  EXPECT_EQ(UsersInCopy(), 1U);
}

TEST_F(OpenFile, Is_whole_in_a_plain_copy_once_a_program_that_wrote_has_closed_it) {
  Write(*first_);
  first_.reset();
  EXPECT_EQ(UsersInCopy(), 1U) << "the other program still has it open";
}

TEST_F(OpenFile, Is_whole_after_another_programs_write_as_well) {
  Write(*first_);
  EXPECT_EQ(Users(*second_), 1U);
  second_->Idle();
  EXPECT_EQ(UsersInCopy(), 1U);
}

TEST_F(OpenFile, Is_not_waited_for_by_an_idle_program_and_is_whole_at_a_later_moment) {
  Users(*second_);
  const auto reading = second_->BeginReadSnapshot();
  Users(*second_);
  Write(*first_);
  {
    const auto writing = second_->BeginWriteBatch();
    first_->Idle();
    writing->Finish();
  }
  first_->Idle();
  EXPECT_EQ(UsersInCopy(), 1U);
}

TEST_F(OpenFile, Keeps_an_open_write_batch_out_of_a_copy) {
  const auto batch = first_->BeginWriteBatch();
  Write(*first_);
  first_->Idle();
  EXPECT_EQ(UsersInCopy(), 0U);
  batch->Finish();
  first_->Idle();
  EXPECT_EQ(UsersInCopy(), 1U);
}

TEST_F(TwoConnections, The_last_one_to_close_leaves_all_in_one_file) {
  test::TemporaryFolder folder;
  const std::string file = folder.File("a.koru");
  const std::string log = file + "-wal";
  CreateDatabaseFile(file, EmbeddedSchema());
  auto first = connector_.Connect(EmbeddedConnectionText(file));
  auto second = connector_.Connect(EmbeddedConnectionText(file));
  first->Open(SqlText("insert into tblUser (FullName) values ('x')"));
  EXPECT_EQ(Users(*second), 1U);
  first.reset();
  EXPECT_TRUE(std::filesystem::exists(log));
  second.reset();
  EXPECT_FALSE(std::filesystem::exists(log)) << "a copy of the file is whole";
  EXPECT_EQ(Users(*connector_.Connect(EmbeddedConnectionText(file))), 1U);
}

}  // namespace
}  // namespace koru
