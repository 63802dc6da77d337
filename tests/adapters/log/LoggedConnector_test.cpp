#include "adapters/log/LoggedConnector.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/sqlite/SqliteDatabase.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

using Lines = std::vector<std::string>;

/// Connects nowhere, as a server that repeats what it was sent.
class RefusingConnector : public DatabaseConnector {
 public:
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override {
    throw DatabaseError("cannot open " + connectionText, 4060, {});
  }
};

class LoggedTest : public testing::Test {
 protected:
  explicit LoggedTest(bool withTexts = false) : withTexts_(withTexts) {}

  /// Connection, outcome and text of each line since the program began.
  [[nodiscard]] Lines Logged() const {
    std::ifstream stream(Path(), std::ios::binary);
    Lines lines;
    for (std::string line; std::getline(stream, line);) {
      std::istringstream fields(line);
      std::string skipped;
      for (int field = 0; field < 3; ++field) std::getline(fields, skipped, '\t');
      std::string rest;
      std::getline(fields, rest);
      lines.push_back(rest);
    }
    lines.erase(lines.begin());
    return lines;
  }
  /// The lines of a connection that is open, without the one that connects.
  [[nodiscard]] Lines LoggedStatements() const {
    Lines lines = Logged();
    lines.erase(lines.begin());
    return lines;
  }
  [[nodiscard]] std::string Path() const { return (file_.Folder().Path() / "koru.log").string(); }
  std::unique_ptr<Database> Connect() { return connector_.Connect(file_.ConnectionText()); }

  bool withTexts_;
  test::TestFile file_;
  SqliteConnector sqlite_{std::chrono::milliseconds(0)};
  std::unique_ptr<test::FailingConnector> failing_ = std::make_unique<test::FailingConnector>(sqlite_);
  test::FaultPlan& plan_ = failing_->Plan();
  LoggedConnector connector_{std::move(failing_), {Path(), withTexts_, "1"}};
};

class LoggedWithTexts : public LoggedTest {
 protected:
  LoggedWithTexts() : LoggedTest(true) {}
};

SqlText UserNamed(std::string_view typed) {
  return SqlText("select ID from tblUser where FullName='") + Typed(typed) + "'";
}

TEST_F(LoggedTest, A_statement_that_reads_shows_its_rows_and_one_that_writes_that_it_is_done) {
  const auto database = Connect();
  database->Open(SqlText("insert into tblUser (ID,FullName) values (7,'x')"));
  EXPECT_EQ(database->Open(SqlText("select * from tblUser")).RecordCount(), 1U);
  database->Open(SqlText("select * from tblUser where ID=8"));
  EXPECT_EQ(LoggedStatements(),
            (Lines{"1\tdone\tinsert into tblUser (ID,FullName) values (7,'x')",
                   "1\t1 row\tselect * from tblUser", "1\t0 rows\tselect * from tblUser where ID=8"}));
}

TEST_F(LoggedTest, A_failure_shows_its_code_and_text_and_fails_as_it_did) {
  const auto database = Connect();
  plan_.FailAt(1);
  try {
    database->Open(UserNamed("Sara"));
    ADD_FAILURE();
  } catch (const DatabaseError& failure) {
    EXPECT_EQ(failure.ServerText(), test::FaultPlan::kServerText);
    EXPECT_EQ(failure.Code(), test::FaultPlan::kCode);
    EXPECT_EQ(failure.Statement(), UserNamed("Sara").Text());
  }
  EXPECT_EQ(LoggedStatements(),
            (Lines{"1\terror 6005: The server is shutting down.\tselect ID from tblUser where "
                   "FullName='xxxx'"}));
}

TEST_F(LoggedTest, Typed_texts_are_masked_also_in_what_the_database_answers) {
  const auto database = Connect();
  EXPECT_THROW(database->Open(SqlText("select ") + SqlName("Sara") + " from tblUser where FullName='" +
                              Typed("Sara") + "'"),
               DatabaseError);
  const Lines lines = LoggedStatements();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("xxxx"), std::string::npos) << lines[0];
  EXPECT_EQ(lines[0].substr(0, lines[0].rfind('\t')).find("Sara"), std::string::npos) << lines[0];
}

TEST_F(LoggedWithTexts, Typed_texts_are_written_where_the_setting_says_so) {
  const auto database = Connect();
  database->Open(UserNamed("Sara"));
  EXPECT_EQ(LoggedStatements(), (Lines{"1\t0 rows\tselect ID from tblUser where FullName='Sara'"}));
}

TEST_F(LoggedTest, Statements_that_are_sent_together_have_a_line_each) {
  const auto database = Connect();
  std::size_t taken = 0;
  database->OpenAll({SqlText("insert into tblUser (ID,FullName) values (1,'a')"), UserNamed("ab1")},
                    [&](std::size_t, const Recordset&) { ++taken; });
  EXPECT_EQ(taken, 2U);
  plan_.FailAt(2);
  EXPECT_THROW(database->OpenAll({UserNamed("a"), UserNamed("bc"), UserNamed("d")}, [](auto, const auto&) {}),
               DatabaseError);
  EXPECT_EQ(
      LoggedStatements(),
      (Lines{"1\tdone\tinsert into tblUser (ID,FullName) values (1,'a')",
             "1\t0 rows\tselect ID from tblUser where FullName='xx9'",
             "1\t1 row\tselect ID from tblUser where FullName='x'",
             "1\terror 6005: The server is shutting down.\tselect ID from tblUser where FullName='xx'"}));
}

TEST_F(LoggedTest, A_permission_shows_the_answer) {
  const auto database = Connect();
  EXPECT_EQ(database->Call("spPelinHasPermission", {7, 806}), 0);
  EXPECT_THROW(database->Call("spNone", {7}), DatabaseError);
  const Lines lines = LoggedStatements();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], "1\treturned 0\t{? = CALL spPelinHasPermission( 7, 806) }");
  EXPECT_TRUE(lines[1].starts_with("1\terror ")) << lines[1];
  EXPECT_TRUE(lines[1].ends_with("\t{? = CALL spNone( 7) }")) << lines[1];
}

TEST_F(LoggedTest, Write_batches_show_whether_they_were_finished_or_given_up) {
  const auto database = Connect();
  database->BeginWriteBatch()->Finish();
  { const auto batch = database->BeginWriteBatch(); }
  { const auto snapshot = database->BeginReadSnapshot(); }
  EXPECT_EQ(LoggedStatements(), (Lines{"1\tdone\twrite batch begins", "1\tdone\twrite batch finished",
                                       "1\tdone\twrite batch begins", "1\tdone\twrite batch given up",
                                       "1\tdone\tread snapshot begins", "1\tdone\tread snapshot ends"}));
}

TEST_F(LoggedTest, A_batch_that_cannot_begin_or_finish_is_an_error) {
  file_.Execute(
      "create trigger GiveUp before insert on tblUser begin select raise(rollback, 'disk trouble'); end");
  const auto database = Connect();
  const auto other = Connect();
  const auto batch = database->BeginWriteBatch();
  EXPECT_THROW((void)other->BeginWriteBatch(), DatabaseError);
  EXPECT_THROW(database->Open(SqlText("insert into tblUser (ID) values (1)")), DatabaseError);
  EXPECT_THROW(batch->Finish(), DatabaseError);
  const Lines lines = Logged();
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_TRUE(lines[3].starts_with("2\terror ") && lines[3].ends_with("\twrite batch begins")) << lines[3];
  EXPECT_TRUE(lines[5].starts_with("1\terror ") && lines[5].ends_with("\twrite batch finished")) << lines[5];
}

TEST_F(LoggedTest, Each_connection_has_its_number_from_its_beginning_to_its_end) {
  auto first = Connect();
  auto second = Connect();
  first.reset();
  second->Open(SqlText("select * from tblUser"));
  second.reset();
  const std::string text = "Provider=SQLite;Data Source=" + file_.File() + ";";
  EXPECT_EQ(Logged(), (Lines{"1\tconnected\t" + text, "2\tconnected\t" + text, "1\tdone\tconnection closed",
                             "2\t0 rows\tselect * from tblUser", "2\tdone\tconnection closed"}));
}

TEST_F(LoggedTest, A_refused_connection_shows_why_and_no_password) {
  LoggedConnector connector(std::make_unique<RefusingConnector>(), {Path(), false, "2"});
  EXPECT_THROW((void)connector.Connect("Provider=SQLOLEDB.1;Data Source=s;Password=secret"), DatabaseError);
  EXPECT_EQ(LoggedStatements(),
            (Lines{"1\terror 4060: cannot open Provider=SQLOLEDB.1;Data Source=s;Password=***\t"
                   "Provider=SQLOLEDB.1;Data Source=s;Password=***;"}));
}

TEST(WithoutALog, Connections_are_the_other_connectors_own) {
  test::TestFile file;
  LoggedConnector connector(std::make_unique<SqliteConnector>(), {});
  EXPECT_NE(dynamic_cast<SqliteDatabase*>(connector.Connect(file.ConnectionText()).get()), nullptr);
}

}  // namespace
}  // namespace koru
