#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/support/ProgramTest.h"

namespace koru {
namespace {

/// The version in the first heading of CHANGELOG.md: "## 1.2.3" or "## 1.2.3 (unreleased)".
std::string NewestVersionInChangeLog() {
  std::ifstream log(std::string(KORU_SOURCES) + "/CHANGELOG.md");
  std::string line;
  while (std::getline(log, line)) {
    if (line.starts_with("## ")) return line.substr(3, line.find(' ', 3) - 3);
  }
  return "none";
}

class ProgramTest : public test::ProgramTest {
 protected:
  ProgramTest() : test::ProgramTest(KORU_PROGRAM) {}
};

TEST_F(ProgramTest, A_sample_is_made_once_and_never_over_another_file) {
  EXPECT_EQ(Run("create-sample a.db").code, 0);
  const std::string made = Text("a.db");
  EXPECT_EQ(made.substr(0, 15), "SQLite format 3");
  const Outcome again = Run("create-sample a.db");
  EXPECT_EQ(again.code, 2);
  EXPECT_NE(again.error.find("a.db"), std::string::npos) << again.error;
  EXPECT_EQ(Text("a.db"), made);
  EXPECT_EQ(Run("create-sample none/a.db").code, 2);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "none"));
}

TEST_F(ProgramTest, What_a_killed_making_of_a_sample_left_is_cleared_by_the_next) {
  for (const char* left : {"a.db.new-123", "a.db.new-123-wal", "a.db.new-123-shm", "a.db.new-4-journal"}) {
    Write(left, "half a sample");
  }
  for (const char* foreign : {"a.db.new-12x", "a.db.new-", "b.db.new-7", "a.db.new-1-old"})
    Write(foreign, "mine");
  EXPECT_EQ(Run("create-sample a.db").code, 0);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    if (entry.path().filename().string().find(".db") != std::string::npos) {
      names.push_back(entry.path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names,
            (std::vector<std::string>{"a.db", "a.db.new-", "a.db.new-1-old", "a.db.new-12x", "b.db.new-7"}));
}

TEST_F(ProgramTest, A_sample_that_another_program_is_making_is_left_to_it) {
  SqliteConnection other(Home() + "/a.db.new-5", SqliteConnection::Mode::Create, std::chrono::seconds(0));
  other.Execute("PRAGMA journal_mode=MEMORY; BEGIN; create table t (x); insert into t values (1)");
  EXPECT_EQ(Run("create-sample a.db").code, 0);
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "a.db.new-5"));
}

TEST_F(ProgramTest, A_sample_of_an_unknown_size_is_refused_and_nothing_is_made) {
  const Outcome outcome = Run("create-sample --size huge a.db");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-counting: اندازة ناشناخته: huge. اندازه ها: standard، medium، full، none\n");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "a.db"));
}

TEST_F(ProgramTest, A_medium_sample_is_made_and_says_how_far_it_is) {
  const Outcome outcome = Run("create-sample --size medium a.db");
  EXPECT_EQ(outcome.code, 0) << outcome.error;
  EXPECT_NE(outcome.out.find("\ra.db: 65 %"), std::string::npos) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("\ra.db: 100 %\n")) << outcome.out;
  SqliteConnection made(Home() + "/a.db", SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  EXPECT_EQ(made.Number("select (select count(*) from tblInventoryReceipt) + "
                        "(select count(*) from tblInventoryDispatch)"),
            20'000);
}

TEST_F(ProgramTest, A_schema_is_for_connections_through_odbc) {
  Outcome outcome = Run("create-schema --connection 'Provider=SQLite;Data Source=a.db'");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("create-sample"), std::string::npos) << outcome.error;
  outcome =
      Run("create-schema --connection 'Provider=SQLOLEDB.1;Driver=NoSuchDriver;Data Source=h;User ID=u'");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("«NoSuchDriver»"), std::string::npos) << outcome.error;
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "a.db"));
}

TEST_F(ProgramTest, The_check_names_a_driver_that_is_not_there_and_those_that_are) {
  const Outcome outcome =
      Run("check --connection 'Provider=SQLOLEDB.1;Driver=Wrong;Data Source=h;User ID=u'");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.out.find("FAILED  راه انداز: راه انداز ODBC به نام «Wrong» روي اين رايانه نصب نيست."),
            std::string::npos)
      << outcome.out;
  EXPECT_NE(outcome.out.find("FreeTDS"), std::string::npos);
}

TEST_F(ProgramTest, The_check_of_a_file_names_what_is_missing) {
  ASSERT_EQ(Run("create-sample a.db").code, 0);
  EXPECT_EQ(Run("check --database a.db").code, 0);
  SqliteConnection(Home() + "/a.db", SqliteConnection::Mode::Existing, std::chrono::seconds(5))
      .Execute("drop table tblInventoryCountingDetail");
  const Outcome outcome = Run("check --database a.db");
  EXPECT_EQ(outcome.code, 1);
  for (const char* beginning : {"FAILED  tblInventoryCountingDetail: در اين پايگاه داده نيست",
                                "FAILED  vwInventoryCountingPrint: ", "ok      tblGood: "}) {
    EXPECT_NE(outcome.out.find(beginning), std::string::npos) << beginning << outcome.out;
  }
  EXPECT_TRUE(outcome.out.ends_with("\n2 مورد درست نيست.\n")) << outcome.out;
}

TEST_F(ProgramTest, A_damaged_settings_file_is_set_aside_and_reported_and_the_program_starts) {
  // The database that is not there ends the program after its start.
  const auto start = [this] { return Run("--database none.db", "QT_QPA_PLATFORM=offscreen"); };
  const std::string unreadable = "[comInvCounting]\nUserID=three\n";
  Write("config/koru-counting/koru-counting.ini", unreadable);
  Outcome outcome = start();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.error.find("koru-counting.ini\u2069، سطر 2"), std::string::npos) << outcome.error;
  EXPECT_NE(outcome.error.find("koru-counting.ini.damaged\u2069"), std::string::npos) << outcome.error;
  EXPECT_NE(outcome.error.find("none.db"), std::string::npos) << outcome.error;
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "config/koru-counting/koru-counting.ini"));
  EXPECT_EQ(Text("config/koru-counting/koru-counting.ini.damaged"), unreadable);

  const std::string nonsense = "[comInvCounting]\nnonsense\n";
  Write("config/koru-counting/koru-counting.ini", nonsense);
  outcome = start();
  EXPECT_NE(outcome.error.find("koru-counting.ini\u2069، سطر 2"), std::string::npos) << outcome.error;
  EXPECT_NE(outcome.error.find("none.db"), std::string::npos) << outcome.error;
  EXPECT_EQ(Text("config/koru-counting/koru-counting.ini.damaged"), unreadable) << "none is written over";
  EXPECT_EQ(Text("config/koru-counting/koru-counting.ini.damaged-2"), nonsense);
  EXPECT_EQ(start().error.find("damaged"), std::string::npos) << "reported once";
}

TEST_F(ProgramTest, A_database_that_cannot_be_used_is_named_and_not_remembered) {
  Write("text.db", "no database");
  for (const char* arguments :
       {"--database none.db", "--database text.db", "--database .", "--connection 0"}) {
    const Outcome outcome = Run(arguments, "QT_QPA_PLATFORM=offscreen");
    EXPECT_EQ(outcome.code, 2) << arguments;
    EXPECT_TRUE(outcome.error.starts_with("koru-counting: ")) << outcome.error;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "config")) << arguments;
  }
  EXPECT_EQ(Text("text.db"), "no database");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "none.db"));
}

TEST_F(ProgramTest, The_log_that_the_environment_names_shows_a_connection_and_why_it_failed) {
  Write("text.db", "no database");
  const std::string arguments = "--connection 'Provider=SQLite;Data Source=text.db;Password=secret'";
  EXPECT_EQ(Run(arguments, "QT_QPA_PLATFORM=offscreen KORU_LOG=koru.log").code, 2);
  const std::string log = Text("koru.log");
  EXPECT_NE(log.find("\tprogram\tbegins\ttyped texts are masked\n"), std::string::npos) << log;
  EXPECT_NE(log.find("\t1\terror 26: "), std::string::npos) << log;
  EXPECT_NE(log.find("Provider=SQLite;Data Source=text.db;Password=***;\n"), std::string::npos) << log;
  EXPECT_EQ(log.find("secret"), std::string::npos) << log;

  EXPECT_EQ(Run(arguments, "QT_QPA_PLATFORM=offscreen KORU_LOG=koru.log KORU_LOG_TEXTS=1").code, 2);
  EXPECT_NE(Text("koru.log").find("\ttyped texts are written\n"), std::string::npos);
}

TEST_F(ProgramTest, Without_a_display_the_host_screen_says_so) {
  const Outcome outcome = Run("");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.error, "koru-counting: نمايشگري براي باز كردن پنجره پيدا نشد (DISPLAY).\n");
}

TEST_F(ProgramTest, Help_and_version_need_no_display) {
  EXPECT_EQ(Run("--help").code, 0);
  const Outcome version = Run("--version");
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "koru-counting " + NewestVersionInChangeLog() + "\n");
  const Outcome wrong = Run("--wrong");
  EXPECT_EQ(wrong.code, 2);
  EXPECT_EQ(wrong.error, "koru-counting: گزينة ناشناخته: --wrong\n");
}

}  // namespace
}  // namespace koru
