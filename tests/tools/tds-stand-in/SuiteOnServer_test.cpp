#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "database/Sample.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "tests/support/DumpTables.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/tds-stand-in/StandInServerTest.h"

namespace koru::test {
namespace {

/// The program's own commands on a server's empty database.
class SuiteOnServer : public StandInServerTest {
 protected:
  /// The exit status of the program.
  int Run(const std::string& arguments) { return RunOn(server_.ConnectionText(), arguments); }
  int RunOn(const std::string& connection, const std::string& arguments) {
    const std::string command = "'" KORU_PROGRAM "' " + arguments + " --connection '" + connection + "' >'" +
                                folder_.File("out") + "' 2>'" + folder_.File("error") + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  [[nodiscard]] std::string Said(const std::string& where) const {
    std::ifstream stream(folder_.File(where), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  /// The names that the check reports as missing.
  std::string Missing() {
    static constexpr std::string_view kFailed = "FAILED  ";
    EXPECT_EQ(Run("check"), 1) << Said("out");
    std::string missing;
    const std::string said = Said("out");
    for (std::size_t at = said.find(kFailed); at != std::string::npos; at = said.find(kFailed, at + 1)) {
      missing += said.substr(at + kFailed.size(), said.find(": ", at) - at - kFailed.size()) + "\n";
    }
    return missing;
  }

  TemporaryFolder folder_;
};

TEST_F(SuiteOnServer, Gets_the_tables_and_the_sample_as_the_embedded_database_has_them) {
  ASSERT_EQ(Run("create-schema"), 0) << Said("error");
  EXPECT_NE(Said("out").find("جدول ها: 100 %\n"), std::string::npos) << Said("out");
  EXPECT_TRUE(Said("out").ends_with("نوشتن در پايگاه داده: 100 %\n")) << Said("out");
  const std::string sample = folder_.File("sample.koru");
  CreateSample(sample, {});
  const std::string embedded = DumpTables(*SqliteConnector().Connect(EmbeddedConnectionText(sample)));
  EXPECT_EQ(DumpTables(*database_), embedded);
  EXPECT_GT(embedded.size(), 100'000U);
}

TEST_F(SuiteOnServer, The_check_of_a_good_database_says_so_line_by_line_and_changes_nothing) {
  ASSERT_EQ(Run("create-schema"), 0) << Said("error");
  const std::string before = DumpTables(*database_);
  EXPECT_EQ(Run("check"), 0) << Said("out");
  const std::string said = Said("out");
  for (const char* line :
       {"ok      راه انداز: درست است.\n", "ok      tblInventoryCountingDetail: با همة ستون هاي لازم هست.\n",
        "ok      اجازة نوشتن tblInventoryCounting: داده شده است.\n",
        "ok      spPelinHasPermission: اجرا شد.\n"}) {
    EXPECT_NE(said.find(line), std::string::npos) << line << said;
  }
  EXPECT_EQ(said.find("FAILED"), std::string::npos) << said;
  EXPECT_TRUE(said.ends_with("همه چيز درست است.\n")) << said;
  EXPECT_EQ(DumpTables(*database_), before);
}

TEST_F(SuiteOnServer, Is_not_made_in_a_database_of_the_server_itself) {
  const std::string whole = server_.ConnectionText();
  const std::string catalog = ";Initial Catalog=suite";
  std::string without = whole;
  without.erase(without.find(catalog), catalog.size());
  EXPECT_NE(RunOn(without, "create-schema --size none"), 0);
  EXPECT_NE(Said("error").find("«master» پايگاه دادة خود سرور است"), std::string::npos) << Said("error");
  EXPECT_EQ(Open("select name as Name from sys.objects where schema_id=schema_id() and name='tblUser'")
                .RecordCount(),
            0U);
}

TEST_F(SuiteOnServer, Is_made_once) {
  ASSERT_EQ(Run("create-schema --size none"), 0) << Said("error");
  Open("insert into tblUser (ID,FullName) values (1,'a')");
  EXPECT_NE(Run("create-schema --size none"), 0);
  EXPECT_NE(Said("error").find("tblUser"), std::string::npos) << Said("error");
  EXPECT_EQ(Text("select FullName from tblUser", "FullName"), "a");
}

TEST_F(SuiteOnServer, The_check_names_a_table_that_is_missing_and_the_view_that_needs_it) {
  ASSERT_EQ(Run("create-schema --size none"), 0) << Said("error");
  Open("drop table tblInventoryCountingDetail");
  EXPECT_EQ(Missing(), "tblInventoryCountingDetail\nvwInventoryCountingPrint\n");
  EXPECT_NE(Said("out").find("Invalid object name 'tblInventoryCountingDetail'. (42S02, 208)"),
            std::string::npos)
      << Said("out");
}

TEST_F(SuiteOnServer, The_check_names_a_column_that_is_missing) {
  ASSERT_EQ(Run("create-schema --size none"), 0) << Said("error");
  Open("alter table tblGood drop column TmpLocationID");
  EXPECT_EQ(Missing(), "tblGood.TmpLocationID\n");
  EXPECT_NE(Said("out").find("Invalid column name 'TmpLocationID'."), std::string::npos) << Said("out");
}

TEST_F(SuiteOnServer, The_check_names_a_procedure_that_is_missing) {
  ASSERT_EQ(Run("create-schema --size none"), 0) << Said("error");
  Open("drop procedure spPelinHasPermission");
  EXPECT_EQ(Missing(), "spPelinHasPermission\n");
  EXPECT_NE(Said("out").find("Could not find stored procedure 'spPelinHasPermission'."), std::string::npos)
      << Said("out");
}

TEST_F(SuiteOnServer, The_check_of_an_empty_database_names_all) {
  const std::string missing = Missing();
  for (const std::string& table : SuiteTables()) {
    // The users' rights are the procedure's alone.
    if (table != "tblPelinUserPermission" && table != "tblPelinCompany" && table != "tblGoodGroup") {
      EXPECT_NE(missing.find(table + "\n"), std::string::npos) << table;
    }
  }
}

}  // namespace
}  // namespace koru::test
