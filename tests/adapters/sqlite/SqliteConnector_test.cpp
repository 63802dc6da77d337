#include "adapters/sqlite/SqliteConnector.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "adapters/sqlite/FileFormat.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "tests/adapters/sqlite/OpeningAFile.h"

namespace koru::test {
namespace {

TEST_F(OpeningAFile, One_of_ours_opens_and_answers) {
  database_.Execute("insert into tblUser (ID, FullName) values (7, 'x')");
  const auto connection = SqliteConnector().Connect(database_.ConnectionText());
  EXPECT_EQ(connection->Open(SqlText("select ID from tblUser")).Field("id").Integer(), 7);
}

TEST_F(OpeningAFile, A_text_that_names_no_file_or_another_database_says_so) {
  EXPECT_NE(Refusal("Provider=SQLite").find("Data Source"), std::string::npos);
  const std::string sentence = Refusal("Provider=Other;Data Source=a;Password=secret");
  EXPECT_NE(sentence.find("Provider=Other"), std::string::npos);
  EXPECT_EQ(sentence.find("secret"), std::string::npos);
}

TEST_F(OpeningAFile, A_missing_file_is_named_and_not_made) {
  const std::string file = folder_.File("نيست.koru");
  ExpectSays(Refusal(TextFor(file)), "پيدا نشد", file);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(OpeningAFile, A_folder_is_named) {
  const std::string folder = folder_.File("box");
  std::filesystem::create_directory(folder);
  ExpectSays(Refusal(TextFor(folder)), "پوشه", folder);
}

TEST_F(OpeningAFile, A_text_file_and_an_empty_file_are_refused_and_stay_as_they_are) {
  const std::string text = folder_.File("letter.txt");
  const std::string content(5000, 'x');
  Write(text, content);
  ExpectSays(Refusal(TextFor(text)), "پايگاه داده نيست", text);
  EXPECT_EQ(Content(text), content);

  const std::string empty = folder_.File("empty");
  Write(empty, "");
  ExpectSays(Refusal(TextFor(empty)), "پايگاه دادة اين سيستم نيست", empty);
  EXPECT_EQ(std::filesystem::file_size(empty), 0U);
}

TEST_F(OpeningAFile, A_damaged_file_is_refused) {
  const std::string damaged = folder_.File("damaged.koru");
  const std::string whole = Content(database_.File());
  Write(damaged, whole.substr(0, 100) + std::string(whole.size() - 100, '\xFF'));
  ExpectSays(Refusal(TextFor(damaged)), "آسيب ديده", damaged);
}

TEST_F(OpeningAFile, Another_programs_database_is_refused) {
  const std::string other = folder_.File("other.db");
  SqliteConnection(other, SqliteConnection::Mode::Create, std::chrono::seconds(0))
      .Execute("create table T (A)");
  ExpectSays(Refusal(TextFor(other)), "پايگاه دادة اين سيستم نيست", other);
}

TEST_F(OpeningAFile, An_older_or_newer_version_is_refused_with_both_numbers) {
  database_.Execute("PRAGMA user_version=" + std::to_string(kSchemaVersion + 1));
  ExpectSays(Refusal(database_.ConnectionText()), "جديدتر", std::to_string(kSchemaVersion + 1));
  database_.Execute("PRAGMA user_version=" + std::to_string(kSchemaVersion - 1));
  ExpectSays(Refusal(database_.ConnectionText()), "قديمي", database_.File());
}

TEST_F(OpeningAFile, A_file_that_another_program_keeps_to_itself_is_reported_as_locked) {
  const std::string file = folder_.File("locked.koru");
  std::filesystem::copy_file(database_.File(), file);
  SqliteConnection other(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  other.Execute(
      "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; insert into tblUser (FullName) values ('x')");
  ExpectSays(Refusal(TextFor(file)), "قفل", file);
}

}  // namespace
}  // namespace koru::test
