#include "host/DatabaseCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "database/sqlserver/SqlServerSchema.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/tools/tds-stand-in/ScriptedServer.h"

namespace koru {
namespace {

using test::ScriptedServer;
using Answer = ScriptedServer::Answer;

class DatabaseCommandsTest : public testing::Test {
 protected:
  [[nodiscard]] static bool AsksWhatIsThere(const std::string& statement) {
    return statement.starts_with("select name as Name from sys.objects");
  }
  std::ostringstream report_;
};

TEST_F(DatabaseCommandsTest, A_server_gets_the_tables_and_the_sample_with_its_keys_and_its_persian) {
  const ScriptedServer server({});
  MakeSuiteDatabase(server.ConnectionText(), SampleSize::Standard, report_);
  const auto statements = server.StatementsOfCallers();
  const std::size_t batches = SqlServerBatches().size();
  ASSERT_GT(statements.size(), 2 + batches);
  EXPECT_TRUE(AsksWhatIsThere(statements[1])) << statements[1];
  for (std::size_t at = 0; at < batches; ++at) EXPECT_EQ(statements[2 + at], SqlServerBatches()[at].Text());
  const auto sent = [&](const std::string& beginning, const std::string& part) {
    return std::any_of(statements.begin(), statements.end(), [&](const std::string& statement) {
      return statement.starts_with(beginning) && statement.find(part) != std::string::npos;
    });
  };
  EXPECT_TRUE(sent("insert into tblUser (ID,FullName) values ", "(1,N'زهرا كريمي')"));
  EXPECT_TRUE(
      sent("set identity_insert tblInventoryCounting on insert into tblInventoryCounting (ID,", "(17,"));
  EXPECT_EQ(server.SignIns(), 1);
  EXPECT_NE(report_.str().find("جدول ها: 100 %\n"), std::string::npos) << report_.str();
  EXPECT_TRUE(report_.str().ends_with("نوشتن در پايگاه داده: 100 %\n")) << report_.str();
}

TEST_F(DatabaseCommandsTest, A_server_that_has_one_of_the_tables_is_asked_and_nothing_more) {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    return AsksWhatIsThere(statement) ? test::OneField("Name", "tblGood") : Answer{};
  };
  const ScriptedServer server(script);
  EXPECT_THROW(MakeSuiteDatabase(server.ConnectionText(), SampleSize::Standard, report_), InputError);
  EXPECT_EQ(server.StatementsOfCallers().size(), 2U);  // the session's settings, and the question
}

TEST_F(DatabaseCommandsTest, A_refused_batch_ends_the_work_with_the_servers_words) {
  ScriptedServer::Script script;
  script.statement = [](const std::string& statement) {
    const bool isView = statement.find("create view") != std::string::npos;
    return isView ? Answer{Answer::Kind::Refusal, 262, "CREATE VIEW permission denied."} : Answer{};
  };
  const ScriptedServer server(script);
  try {
    MakeSuiteDatabase(server.ConnectionText(), std::nullopt, report_);
    FAIL();
  } catch (const DatabaseError& failure) {
    EXPECT_NE(failure.ServerText().find("CREATE VIEW permission denied."), std::string::npos);
    EXPECT_EQ(failure.Code(), 262);
  }
  EXPECT_NE(server.StatementsOfCallers().back().find("create view"), std::string::npos);
}

TEST_F(DatabaseCommandsTest, The_check_of_a_server_says_who_is_refused_without_the_password) {
  ScriptedServer::Script script;
  script.signIn = [] { return Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'clerk'."}; };
  const ScriptedServer server(script);
  EXPECT_FALSE(ReportCheck(server.ConnectionText(), report_));
  const std::string reported = report_.str();
  EXPECT_NE(reported.find("ok      سرور: درست است.\nFAILED  ورود: سرور «127.0.0.1,"), std::string::npos)
      << reported;
  EXPECT_NE(reported.find("Login failed for user 'clerk'."), std::string::npos) << reported;
  EXPECT_EQ(reported.find("s3cret"), std::string::npos) << reported;
}

}  // namespace
}  // namespace koru
