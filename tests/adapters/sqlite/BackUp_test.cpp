#include "adapters/sqlite/BackUp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/Sample.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

class BackUpTest : public testing::Test {
 protected:
  void SetUp() override { CreateSample(from_, {}); }

  [[nodiscard]] static BackupProgress GoOn() {
    return [](int) { return true; };
  }
  [[nodiscard]] BackupOutcome Run(const BackupProgress& progress) const {
    return BackUp(from_, to_, {"tblInventoryCounting", "vwInventoryCounting"}, progress);
  }
  [[nodiscard]] std::string ErrorOf(const std::string& to,
                                    const std::vector<std::string_view>& tables = {}) const {
    try {
      BackUp(from_, to, tables, GoOn());
    } catch (const InputError& error) {
      return error.what();
    }
    return "no error";
  }
  static std::int64_t Number(const std::string& file, const char* sql) {
    return SqliteConnection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(5)).Number(sql);
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder_;
  std::string from_ = (folder_.Path() / "a.db").string();
  std::string to_ = (folder_.Path() / "copy.db").string();
};

TEST_F(BackUpTest, A_file_that_is_open_is_copied_with_what_is_only_in_its_log) {
  const auto open = SqliteConnector().Connect(EmbeddedConnectionText(from_));
  open->Open(SqlText("update tblInventoryCounting set Notes = 'newest' where ID = 17"));
  ASSERT_GT(std::filesystem::file_size(from_ + "-wal"), 0U);
  EXPECT_EQ(Run(GoOn()), BackupOutcome::Done);
  EXPECT_EQ(Number(to_, "select count(*) from tblInventoryCounting where Notes = 'newest'"), 1);
  EXPECT_EQ(Number(to_, "select count(*) from tblGood"), Number(from_, "select count(*) from tblGood"));
  // The open connection still holds its locks and writes where others read.
  open->Open(SqlText("update tblInventoryCounting set Notes = 'later' where ID = 17"));
  EXPECT_EQ(Number(from_, "select count(*) from tblInventoryCounting where Notes = 'later'"), 1);
}

TEST_F(BackUpTest, What_is_stored_while_it_runs_neither_waits_nor_is_in_it) {
  const auto other = SqliteConnector(std::chrono::milliseconds(0)).Connect(EmbeddedConnectionText(from_));
  int calls = 0;
  EXPECT_EQ(Run([&](int) {
              other->Open(SqlText("update tblInventoryCounting set Notes = 'meanwhile' where ID = 17"));
              return ++calls < 10'000;
            }),
            BackupOutcome::Done);
  EXPECT_GT(calls, 1);
  EXPECT_EQ(Number(to_, "select count(*) from tblInventoryCounting where Notes = 'meanwhile'"), 0);
}

TEST_F(BackUpTest, The_progress_never_decreases_and_ends_with_a_hundred) {
  std::vector<int> shown;
  EXPECT_EQ(Run([&](int percent) {
              shown.push_back(percent);
              return true;
            }),
            BackupOutcome::Done);
  EXPECT_EQ(shown.front(), 0);
  EXPECT_EQ(shown.back(), 100);
  EXPECT_TRUE(std::is_sorted(shown.begin(), shown.end()));
  EXPECT_GT(shown.size(), 3U);
}

TEST_F(BackUpTest, A_cancelled_one_leaves_the_old_copy_and_nothing_else) {
  std::ofstream(to_) << "older";
  for (const int last : {0, 40, 80}) {
    EXPECT_EQ(Run([last](int percent) { return percent < last; }), BackupOutcome::Cancelled) << last;
    EXPECT_EQ(std::filesystem::file_size(to_), 5U);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.db", "copy.db"}));
  }
}

TEST_F(BackUpTest, A_copy_without_a_needed_table_is_not_kept) {
  const std::string error = ErrorOf(to_, {"tblGood", "tblNone"});
  EXPECT_TRUE(error.starts_with("پشتيبان گرفته نشد: ")) << error;
  EXPECT_NE(error.find("tblNone"), std::string::npos) << error;
  EXPECT_EQ(Names(), std::vector<std::string>{"a.db"});
}

TEST_F(BackUpTest, A_copy_of_a_damaged_file_is_not_kept) {
  const auto size = static_cast<std::streamoff>(std::filesystem::file_size(from_));
  std::fstream file(from_, std::ios::binary | std::ios::in | std::ios::out);
  for (std::streamoff at = size / 2; at < size / 2 + 200 * 4096; at += 4096)
    file.seekp(at) << std::string(64, '\xAA');
  file.close();
  EXPECT_NE(ErrorOf(to_), "no error");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.db"});
}

TEST_F(BackUpTest, The_database_itself_and_a_file_in_use_are_no_place_for_it) {
  EXPECT_NE(ErrorOf(from_), "no error");
  EXPECT_NE(ErrorOf((folder_.Path() / "." / "a.db").string()), "no error");
  CreateSample(to_, {});
  const auto open = SqliteConnector().Connect(EmbeddedConnectionText(to_));
  open->Open(SqlText("update tblInventoryCounting set Notes = 'mine' where ID = 17"));
  EXPECT_NE(ErrorOf(to_), "no error");
  EXPECT_EQ(open->Open(SqlText("select ID from tblInventoryCounting where Notes = 'mine'")).RecordCount(),
            1U);
  EXPECT_NE(ErrorOf((folder_.Path() / "none" / "x.db").string()), "no error");
}

TEST_F(BackUpTest, It_replaces_an_older_copy) {
  ASSERT_EQ(Run(GoOn()), BackupOutcome::Done);
  SqliteConnection(from_, SqliteConnection::Mode::Existing, std::chrono::seconds(5))
      .Execute("delete from tblInventoryCounting where ID = 17");
  ASSERT_EQ(Run(GoOn()), BackupOutcome::Done);
  EXPECT_EQ(Number(to_, "select count(*) from tblInventoryCounting where ID = 17"), 0);
}

}  // namespace
}  // namespace koru
