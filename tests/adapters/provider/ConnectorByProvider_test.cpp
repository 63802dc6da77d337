#include "adapters/provider/ConnectorByProvider.h"

#include <gtest/gtest.h>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/Schema.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

std::string ErrorOf(const std::string& connection) {
  try {
    static_cast<void>(ConnectorByProvider().Connect(connection));
  } catch (const DatabaseError& error) {
    return error.ServerText();
  }
  return "no error";
}

TEST(ConnectorByProviderTest, The_embedded_database_is_reached_by_its_file_whatever_its_name) {
  const TemporaryFolder folder;
  const std::string file = (folder.Path() / "انبار; \"الف\" 1.db").string();
  CreateDatabaseFile(file, EmbeddedSchema());
  const auto database = ConnectorByProvider().Connect(EmbeddedConnectionText(file));
  EXPECT_EQ(database->Open(SqlText("Select ID from tblUser")).RecordCount(), 0U);
  EXPECT_EQ(ErrorOf("provider = sqlite; data source = '" + file + "'"), "no error");
}

TEST(ConnectorByProviderTest, Anything_else_is_refused_with_one_sentence_and_no_password) {
  EXPECT_EQ(ErrorOf("0"), "هنوز پايگاه داده اي به اين فرم داده نشده است.");
  EXPECT_EQ(ErrorOf(" "), "هنوز پايگاه داده اي به اين فرم داده نشده است.");
  EXPECT_EQ(ErrorOf("Provider=Oracle;pwd=secret"),
            "نوع پايگاه داده (Provider) در رشته اتصال شناخته نشد: \u2066Provider=Oracle;pwd=***;\u2069");
  EXPECT_EQ(ErrorOf("Data Source=x"),
            "نوع پايگاه داده (Provider) در رشته اتصال شناخته نشد: \u2066Data Source=x;\u2069");
  for (const char* text :
       {"Password=secret", "Provider=Other;Password=secret", "Provider=SQLite;Password=secret"}) {
    EXPECT_EQ(ErrorOf(text).find("secret"), std::string::npos) << text;
    EXPECT_NE(ErrorOf(text), "no error") << text;
  }
}

}  // namespace
}  // namespace koru
