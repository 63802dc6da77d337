#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

SqlText InsertUser(int id) { return SqlText("insert into tblUser (ID,FullName) values (") + id + ",'x')"; }

/// The file is deleted or replaced while the program works: somebody tidies up, or restores a backup.
class LostFile : public testing::Test {
 protected:
  LostFile() { connection_->Open(InsertUser(1)); }

  /// The file that the failure of `action` names as lost; empty when it does not fail.
  template <class Action>
  static std::string Lost(Action action) {
    try {
      action();
    } catch (const DatabaseError& failure) {
      EXPECT_EQ(failure.Code(), SQLITE_READONLY_DBMOVED);
      const std::string sentence = "پروندة پايگاه داده از جاي خود رفته است: ";
      EXPECT_TRUE(failure.ServerText().starts_with(sentence)) << failure.ServerText();
      return failure.ServerText().substr(sentence.size());
    }
    return {};
  }
  std::string WhenWritingOne() {
    return Lost([this] { connection_->Open(InsertUser(2)); });
  }
  std::string WhenWritingMany() {
    return Lost([this] { (void)connection_->BeginWriteBatch(); });
  }
  std::string WhenReadingMany() {
    return Lost([this] { (void)connection_->BeginReadSnapshot(); });
  }
  void ExpectRefused(const std::string& lost) {
    EXPECT_EQ(WhenWritingOne(), lost);
    EXPECT_EQ(WhenWritingMany(), lost);
    EXPECT_EQ(WhenReadingMany(), lost);
  }

  test::TestFile database_;
  const std::string file_ = database_.File();
  const std::string elsewhere_ = database_.Folder().File("elsewhere.koru");
  const std::string named_ = LeftToRight(file_);
  std::unique_ptr<Database> connection_ = SqliteConnector().Connect(database_.ConnectionText());
};

TEST_F(LostFile, A_deleted_file_takes_no_more_writes_and_names_itself) {
  std::filesystem::remove(file_);
  ExpectRefused(named_);
  EXPECT_EQ(connection_->Open(SqlText("select ID from tblUser")).RecordCount(), 1U);
}

TEST_F(LostFile, A_moved_file_takes_no_more_writes_until_it_is_back) {
  std::filesystem::rename(file_, elsewhere_);
  ExpectRefused(named_);
  std::filesystem::rename(elsewhere_, file_);
  ExpectRefused({});
}

TEST_F(LostFile, A_file_that_another_one_has_replaced_takes_no_more_writes) {
  std::filesystem::copy_file(file_, elsewhere_);
  std::filesystem::rename(elsewhere_, file_);
  ExpectRefused(named_);
}

TEST_F(LostFile, A_log_that_another_program_took_away_takes_no_more_writes) {
  std::filesystem::remove(file_ + "-wal");
  ExpectRefused(LeftToRight(file_ + "-wal"));
}

TEST_F(LostFile, A_save_whose_file_is_removed_before_it_ends_is_not_reported_as_done) {
  const auto group = connection_->BeginWriteBatch();
  connection_->Open(InsertUser(2));
  connection_->Open(InsertUser(3));
  std::filesystem::rename(file_, elsewhere_);
  EXPECT_EQ(Lost([&] { group->Finish(); }), named_);
  std::filesystem::rename(elsewhere_, file_);
  EXPECT_EQ(database_.Scalar("select count(*) from tblUser"), "1");
  connection_->BeginWriteBatch()->Finish();
}

TEST_F(LostFile, Without_a_log_only_the_file_itself_counts) {
  const std::string file = database_.Folder().File("no-log.koru");
  std::filesystem::copy_file(file_, file);
  SqliteConnection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0))
      .Execute("PRAGMA journal_mode=DELETE");
  connection_ = SqliteConnector().Connect(EmbeddedConnectionText(file));
  ExpectRefused({});
  std::filesystem::remove(file);
  ExpectRefused(LeftToRight(file));
}

}  // namespace
}  // namespace koru
