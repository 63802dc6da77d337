#include "adapters/sqlite/CreateDatabaseFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "adapters/sqlite/FileFormat.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

class CreateFile : public testing::Test {
 protected:
  [[nodiscard]] std::ptrdiff_t FilesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(folder_.Path()),
                         std::filesystem::directory_iterator());
  }
  test::TemporaryFolder folder_;
  std::string file_ = folder_.File("شمارش نو.koru");
};

TEST_F(CreateFile, Has_schema_rows_marks_and_write_ahead_log) {
  CreateDatabaseFile(file_, "create table T (A integer); create index I on T (A)",
                     [](SqliteConnection& connection) {
                       SqliteStatement insert = connection.Prepare("insert into T values (?)");
                       for (int row = 1; row <= 3; ++row) {
                         insert.Bind(1, row);
                         insert.Run();
                       }
                     });
  EXPECT_EQ(FilesInFolder(), 1);
  SqliteConnection connection(file_, SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  EXPECT_EQ(connection.Number("select sum(A) from T"), 6);
  EXPECT_EQ(connection.Number("PRAGMA application_id"), kApplicationId);
  EXPECT_EQ(connection.Number("PRAGMA user_version"), kSchemaVersion);
  SqliteStatement mode = connection.Prepare("PRAGMA journal_mode");
  ASSERT_TRUE(mode.Step());
  EXPECT_EQ(mode.Text(0), "wal");
}

TEST_F(CreateFile, An_existing_file_is_never_overwritten) {
  std::ofstream(folder_.Path() / std::filesystem::path(u8"شمارش نو.koru")) << "mine";
  try {
    CreateDatabaseFile(file_, "create table T (A integer)");
    ADD_FAILURE();
  } catch (const InputError& error) {
    EXPECT_NE(std::string(error.what()).find(file_), std::string::npos);
  }
  std::ifstream content(folder_.Path() / std::filesystem::path(u8"شمارش نو.koru"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(content), {}), "mine");
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(CreateFile, A_file_that_appears_meanwhile_is_not_overwritten_either) {
  const auto putInTheWay = [&](SqliteConnection&) {
    std::ofstream(folder_.Path() / std::filesystem::path(u8"شمارش نو.koru")) << "faster";
  };
  EXPECT_THROW(CreateDatabaseFile(file_, "create table T (A integer)", putInTheWay), InputError);
  EXPECT_EQ(std::filesystem::file_size(folder_.Path() / std::filesystem::path(u8"شمارش نو.koru")), 6U);
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(CreateFile, Nothing_is_left_of_a_file_that_could_not_be_finished) {
  EXPECT_THROW(CreateDatabaseFile(file_, "create table T (A integer); create tabel U (B)"), DatabaseError);
  EXPECT_EQ(FilesInFolder(), 0);
  const auto fail = [](SqliteConnection&) { throw std::runtime_error("no more rows"); };
  EXPECT_THROW(CreateDatabaseFile(file_, "create table T (A integer)", fail), std::runtime_error);
  EXPECT_EQ(FilesInFolder(), 0);
}

TEST_F(CreateFile, A_folder_that_is_not_there_is_named) {
  const std::string file = folder_.File("nowhere/new.koru");
  try {
    CreateDatabaseFile(file, "create table T (A integer)");
    ADD_FAILURE();
  } catch (const InputError& error) {
    EXPECT_NE(std::string(error.what()).find(file), std::string::npos);
  }
}

}  // namespace
}  // namespace koru
