#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "adapters/odbc/OdbcConnectError.h"
#include "adapters/odbc/OdbcConnector.h"
#include "tests/tools/tds-stand-in/ScriptedServer.h"

namespace koru::test {
namespace {

using Answer = ScriptedServer::Answer;
using Script = ScriptedServer::Script;
using Step = OdbcConnectError::Step;

/// Short timeouts, so that the tests of silence are short, and what a loaded machine may add to them.
constexpr OdbcTimeouts kShort{std::chrono::seconds(1), std::chrono::seconds(1)};
constexpr std::chrono::seconds kAtMost{8};

class OdbcServer : public testing::Test {
 protected:
  /// Answers one statement in a way of its own, all others with success.
  static Script Answering(const std::string& statement, const Answer& answer) {
    Script script;
    script.statement = [=](const std::string& sent) { return sent == statement ? answer : Answer{}; };
    return script;
  }

  static DatabaseError Failure(Database& database, const SqlText& statement) {
    try {
      database.Open(statement);
    } catch (const DatabaseError& failure) {
      return failure;
    }
    throw std::logic_error("went through: " + statement.Text());
  }

  static OdbcConnectError ConnectFailure(const ScriptedServer& server) {
    try {
      static_cast<void>(OdbcConnector(kShort).Connect(server.ConnectionText()));
    } catch (const OdbcConnectError& failure) {
      return failure;
    }
    throw std::logic_error("connected");
  }
};

TEST_F(OdbcServer, The_session_is_set_up_once_and_statements_are_sent_unchanged) {
  const ScriptedServer server({});
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  database->Open(SqlText("delete tblInventoryCounting where id=5"));
  database->Open(SqlText("update tblUser set FullName='علی 🙂', Code='A'"));
  const std::vector<std::string> statements = server.Statements();
  ASSERT_EQ(statements.size(), 3U);
  EXPECT_TRUE(statements[0].starts_with("SET DATEFORMAT ymd")) << statements[0];
  EXPECT_EQ(statements[1], "delete tblInventoryCounting where id=5");
  EXPECT_EQ(statements[2], "update tblUser set FullName=N'علی 🙂', Code='A'");
  EXPECT_EQ(server.SignIns(), 1);
}

TEST_F(OdbcServer, Persian_names_and_messages_arrive) {
  const ScriptedServer server(
      Answering("delete T", {Answer::Kind::Refusal, 50000, "اجازه نداريد 🙂"}));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(
      "Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," + std::to_string(server.Port()) +
      ";Initial Catalog=انبار;User ID=علی;Password=x");
  EXPECT_TRUE(server.SignInHeld("انبار"));
  EXPECT_TRUE(server.SignInHeld("علی"));
  const DatabaseError failure = Failure(*database, SqlText("delete T"));
  EXPECT_NE(failure.ServerText().find("اجازه نداريد 🙂"), std::string::npos)
      << failure.ServerText();
}

TEST_F(OdbcServer, Rows_are_read) {
  const ScriptedServer server(Answering("select N", OneField("N", 806)));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  const Recordset records = database->Open(SqlText("select N"));
  ASSERT_EQ(records.RecordCount(), 1U);
  EXPECT_EQ(records.Field("n").Integer(), 806);
}

TEST_F(OdbcServer, Days_are_read_without_their_time) {
  const ScriptedServer server(Answering("select N", OneField("CreateDate", "2024-03-03")));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  EXPECT_EQ(database->Open(SqlText("select N")).Field("CreateDate").Text(), "2024-03-03");
}

TEST_F(OdbcServer, A_procedure_is_called_and_answers_with_its_return_value) {
  const ScriptedServer server(Answering("CALL spPelinHasPermission(7,806)", {Answer::Kind::Done, 1, {}}));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  EXPECT_EQ(database->Call("spPelinHasPermission", {7, 806}), 1);
  EXPECT_EQ(database->Call("spOther", {7}), 0);
}

TEST_F(OdbcServer, A_refused_statement_reports_the_servers_words_and_number_and_the_connection_stays) {
  const ScriptedServer server(
      Answering("select * from T", {Answer::Kind::Refusal, 208, "Invalid object name 'T'."}));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  const DatabaseError failure = Failure(*database, SqlText("select * from T"));
  EXPECT_EQ(failure.Code(), 208);
  EXPECT_NE(failure.ServerText().find("Invalid object name 'T'."), std::string::npos) << failure.ServerText();
  EXPECT_NE(failure.ServerText().find(", 208)"), std::string::npos) << failure.ServerText();
  EXPECT_EQ(failure.Statement(), "select * from T");
  database->Open(SqlText("delete T"));
  EXPECT_EQ(server.SignIns(), 1);
}

TEST_F(OdbcServer, A_closed_connection_is_reported_and_the_next_statement_connects_again) {
  const ScriptedServer server(Answering("delete T", {Answer::Kind::Close, 0, {}}));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  const DatabaseError failure = Failure(*database, SqlText("delete T"));
  EXPECT_NE(failure.ServerText().find("ارتباط با سرور قطع شد"), std::string::npos) << failure.ServerText();
  EXPECT_EQ(failure.Statement(), "delete T");
  database->Open(SqlText("delete U"));
  EXPECT_EQ(server.SignIns(), 2);
  const std::vector<std::string> statements = server.Statements();
  ASSERT_EQ(statements.size(), 4U);  // the settings, the lost one, once; the settings again, the next one
  EXPECT_EQ(statements[1], "delete T");
  EXPECT_EQ(statements[2], statements[0]);
  EXPECT_EQ(statements[3], "delete U");
}

TEST_F(OdbcServer, A_server_that_does_not_answer_a_statement_is_waited_for_no_longer_than_said) {
  const ScriptedServer server(Answering("delete T", {Answer::Kind::Silence, 0, {}}));
  const std::unique_ptr<Database> database = OdbcConnector(kShort).Connect(server.ConnectionText());
  const auto begin = std::chrono::steady_clock::now();
  const DatabaseError failure = Failure(*database, SqlText("delete T"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kAtMost);
  EXPECT_NE(failure.ServerText().find("سرور در 1 ثانيه پاسخي نداد"), std::string::npos)
      << failure.ServerText();
  database->Open(SqlText("delete U"));
  EXPECT_EQ(server.SignIns(), 2);
}

TEST_F(OdbcServer, A_silent_server_is_waited_for_no_longer_than_said) {
  Script script;
  script.greets = false;
  const ScriptedServer server(script);
  const auto begin = std::chrono::steady_clock::now();
  const OdbcConnectError failure = ConnectFailure(server);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kAtMost);
  EXPECT_EQ(failure.Where(), Step::Server);
  EXPECT_NE(failure.ServerText().find("در 1 ثانيه پاسخي نداد."), std::string::npos) << failure.ServerText();
}

TEST_F(OdbcServer, A_refused_sign_in_names_the_server_and_no_password) {
  Script script;
  script.signIn = [] {
    return Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'clerk', s3cret}pass."};
  };
  const ScriptedServer server(script);
  const OdbcConnectError failure = ConnectFailure(server);
  EXPECT_EQ(failure.Where(), Step::SignIn);
  EXPECT_NE(failure.ServerText().find("نام كاربر يا گذرواژه را نپذيرفت"), std::string::npos);
  EXPECT_NE(failure.ServerText().find("Login failed for user 'clerk', ***."), std::string::npos)
      << failure.ServerText();
  EXPECT_EQ(failure.Code(), 18456);
}

TEST_F(OdbcServer, A_password_of_few_letters_is_not_cut_out_of_the_servers_words_so_that_it_shows) {
  Script script;
  script.signIn = [] { return Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'sa'."}; };
  const ScriptedServer server(script);
  const auto failure = [&](const std::string& password) {
    try {
      static_cast<void>(OdbcConnector(kShort).Connect(
          "Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," + std::to_string(server.Port()) +
          ";Initial Catalog=x;User ID=sa;Password=" + password));
    } catch (const OdbcConnectError& refused) {
      return refused.ServerText();
    }
    return std::string("connected");
  };
  EXPECT_TRUE(failure("sa").ends_with("نام كاربر يا گذرواژه را نپذيرفت.\n***")) << failure("sa");
  EXPECT_NE(failure("zz").find("Login failed for user 'sa'."), std::string::npos) << failure("zz");
}

TEST_F(OdbcServer, Encryption_and_the_machines_user_are_named_where_the_server_cannot_be_reached_with_them) {
  const ScriptedServer server({});
  const std::string text = "Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," +
                           std::to_string(server.Port()) + ";Initial Catalog=x;";
  const auto failure = [&](const std::string& rest) {
    try {
      static_cast<void>(OdbcConnector(kShort).Connect(text + rest));
    } catch (const OdbcConnectError& refused) {
      return refused.ServerText();
    }
    return std::string("connected");
  };
  const std::string encrypted = failure("User ID=a;Password=secret;Encrypt=yes");
  EXPECT_NE(encrypted.find("شايد اين سرور TLS ندارد"), std::string::npos) << encrypted;
  EXPECT_EQ(encrypted.find("Kerberos"), std::string::npos) << encrypted;
  const std::string integrated = failure("Integrated Security=SSPI");
  EXPECT_NE(integrated.find("شايد او بليت Kerberos ندارد"), std::string::npos) << integrated;
  EXPECT_EQ(integrated.find("TLS"), std::string::npos) << integrated;
}

TEST_F(OdbcServer, An_unknown_database_is_named) {
  Script script;
  script.signIn = [] { return Answer{Answer::Kind::Refusal, 4060, "Cannot open database."}; };
  const ScriptedServer server(script);
  const OdbcConnectError failure = ConnectFailure(server);
  EXPECT_EQ(failure.Where(), Step::Database);
  EXPECT_NE(failure.ServerText().find("«suite»"), std::string::npos) << failure.ServerText();
}

}  // namespace
}  // namespace koru::test
