#include "database/sqlserver/SqlServerSchema.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/Sample.h"
#include "database/sqlserver/NeededTables.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "tests/database/sqlserver/ScriptTables.h"
#include "tests/support/TestFile.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

/// The lines of a text.
Columns Lines(const std::string& text) {
  Columns lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    lines.insert(LowerAscii(text.substr(at, end - at)));
    at = end + 1;
  }
  return lines;
}

using Findings = std::vector<std::string>;

class SqlServerSchema : public testing::Test {
 protected:
  Columns EmbeddedNames(const std::string& kind) {
    return Lines(embedded_.Rows("select name from sqlite_schema where type='" + kind +
                                "' and name not like 'sqlite[_]%'"));
  }
  Columns EmbeddedColumns(const std::string& table) {
    return Lines(embedded_.Rows("select name from pragma_table_info('" + table + "')"));
  }
  TestFile embedded_;
};

TEST_F(SqlServerSchema, Has_the_tables_of_the_embedded_database_with_the_same_columns) {
  std::map<std::string, ScriptTable> tables = TablesOf(SqlServerBatches());
  Columns names;
  for (auto& [name, table] : tables) {
    names.insert(name);
    table.types.erase("trimmedbarcode");
    EXPECT_EQ(table.Names(), EmbeddedColumns(name)) << name;
  }
  EXPECT_EQ(names, EmbeddedNames("table"));
}

TEST_F(SqlServerSchema, Has_the_views_of_the_embedded_database_with_the_same_columns) {
  const std::map<std::string, Columns> views = ViewsOf(SqlServerBatches());
  Columns names;
  for (const auto& [name, columns] : views) {
    names.insert(name);
    EXPECT_EQ(columns, EmbeddedColumns(name)) << name;
  }
  EXPECT_EQ(names, EmbeddedNames("view"));
}

TEST_F(SqlServerSchema, Has_all_that_the_component_needs) {
  const std::map<std::string, ScriptTable> tables = TablesOf(SqlServerBatches());
  const std::map<std::string, Columns> views = ViewsOf(SqlServerBatches());
  for (const NeededTable& needed : NeededTables()) {
    const std::string name = LowerAscii(needed.name);
    const Columns columns = tables.contains(name) ? tables.at(name).Names() : views.at(name);
    for (const std::string_view column : needed.columns) {
      EXPECT_TRUE(columns.contains(LowerAscii(column))) << name << "." << column;
    }
  }
}

TEST_F(SqlServerSchema, Types_hold_what_the_component_writes) {
  const std::map<std::string, std::string> types{{"integer", "int"}, {"real", "float"}, {"text", "nvarchar"}};
  for (const auto& [name, table] : TablesOf(SqlServerBatches())) {
    for (const auto& [column, type] : table.types) {
      if (type == "as") continue;
      std::string query = "select type from pragma_table_info('" + name;
      query += "') where name='" + column;
      const std::string embedded = LowerAscii(embedded_.Scalar(query + "' collate nocase"));
      const bool isDay = column.ends_with("date") && !column.starts_with("farsi");
      const bool isFlag = column == "isdefault";
      EXPECT_EQ(type, isDay ? "datetime" : isFlag ? "bit" : types.at(embedded)) << name << "." << column;
    }
  }
}

TEST_F(SqlServerSchema, Each_batch_is_one_statement_that_creates_one_thing_in_the_servers_own_words) {
  ASSERT_FALSE(SqlServerBatches().empty());
  std::set<std::string> names;
  for (const SqlText& batch : SqlServerBatches()) {
    EXPECT_EQ(BrokenRules(batch.Text()), Findings()) << batch.Text();
    const std::vector<std::string> tokens = TokensOf(batch);
    ASSERT_GT(tokens.size(), 3U) << batch.Text();
    EXPECT_EQ(tokens.front(), "create") << batch.Text();
    EXPECT_TRUE(names.insert(tokens[tokens[1] == "clustered" ? 3 : 2]).second) << batch.Text();
  }
}

TEST_F(SqlServerSchema, Numbers_the_rows_of_those_tables_whose_keys_the_component_reads_back) {
  std::set<std::string> numbered;
  for (const std::string& table : SuiteTables()) {
    if (IsNumberedByServer(table)) numbered.insert(table);
  }
  EXPECT_EQ(numbered,
            (std::set<std::string>{"tblInventoryCounting", "tblInventoryReceipt", "tblInventoryDispatch"}));
}

TEST_F(SqlServerSchema, Columns_are_wide_enough_for_the_sample) {
  const std::string file = embedded_.Folder().File("sample.db");
  CreateSample(file, {});
  embedded_.Execute("attach '" + file + "' as sample");
  for (const auto& [name, table] : TablesOf(SqlServerBatches())) {
    for (const auto& [column, length] : table.lengths) {
      // Characters above U+FFFF need two UTF-16 units: twice the number of characters is an upper bound.
      const std::string longest =
          embedded_.Scalar("select ifnull(max(length(" + column + ")),0)*2 from sample." + name);
      EXPECT_LE(std::stoi(longest), length) << name << "." << column;
    }
    for (const auto& [column, type] : table.types) {
      if (type != "int") continue;
      EXPECT_EQ(
          embedded_.Scalar("select count(*) from sample." + name + " where abs(" + column + ")>2147483647"),
          "0")
          << name << "." << column;
    }
  }
}

TEST_F(SqlServerSchema, Indexes_are_on_columns_that_are_there) {
  const std::map<std::string, ScriptTable> tables = TablesOf(SqlServerBatches());
  int indexes = 0;
  for (const SqlText& batch : SqlServerBatches()) {
    const std::vector<std::string> tokens = TokensOf(batch);
    const auto on = std::find(tokens.begin(), tokens.end(), "on");
    if (on == tokens.end() || std::find(tokens.begin(), on, "index") == on) continue;
    ++indexes;
    for (auto column = on + 2; column != tokens.end(); ++column) {
      if (*column == "(" || *column == ")" || *column == "," || *column == "include") continue;
      EXPECT_TRUE(tables.at(*(on + 1)).types.contains(*column)) << batch.Text();
    }
  }
  EXPECT_GT(indexes, 5);
}

/// A server that accepts all statements but one and has objects with the given names.
class Listener : public Database {
 public:
  explicit Listener(std::size_t refused, std::vector<std::string> objects = {})
      : refused_(refused), objects_(std::move(objects)) {}
  Recordset Open(const SqlText& statement) override {
    if (statement.Text() == "select db_name() as DatabaseName") {
      Recordset named({"DatabaseName"});
      named.AppendText(name);
      return named;
    }
    if (statement.Text().starts_with("select name as Name from sys.objects")) {
      asked = statement.Text();
      Recordset found({"Name"});
      for (const std::string& name : objects_) found.AppendText(name);
      return found;
    }
    if (sent.size() == refused_)
      throw DatabaseError("There is already an object named so.", 2714, statement.Text());
    sent.push_back(statement.Text());
    return {};
  }
  std::int32_t Call(std::string_view /*procedure*/,
                    const std::vector<std::int32_t>& /*parameters*/) override {
    return 0;
  }
  std::unique_ptr<WriteBatch> BeginWriteBatch() override { return nullptr; }

  std::string name = "suite";  ///< of the database
  std::vector<std::string> sent;
  std::string asked;  ///< the queries for existing objects

 private:
  std::size_t refused_;
  std::vector<std::string> objects_;
};

TEST_F(SqlServerSchema, Is_created_batch_by_batch_and_reports_progress) {
  Listener listener(1000);
  std::vector<std::size_t> progress;
  CreateSqlServerSchema(listener, [&](std::size_t done, std::size_t all) {
    progress.push_back(done);
    EXPECT_EQ(all, SqlServerBatches().size());
    EXPECT_EQ(done, listener.sent.size());
  });
  EXPECT_EQ(progress.size(), SqlServerBatches().size());
  EXPECT_EQ(listener.sent.back(), SqlServerBatches().back().Text());
}

TEST_F(SqlServerSchema, Is_not_made_where_something_of_it_is_and_says_what) {
  Listener listener(1000, {"tblGood", "vwPelinCompany"});
  try {
    CreateSqlServerSchema(listener, {});
    FAIL();
  } catch (const InputError& refusal) {
    EXPECT_NE(std::string(refusal.what()).find("tblGood، vwPelinCompany"), std::string::npos)
        << refusal.what();
  }
  EXPECT_TRUE(listener.sent.empty());
}

TEST_F(SqlServerSchema, Looks_for_every_table_view_and_procedure_before_it_is_made) {
  Listener listener(1000);
  CreateSqlServerSchema(listener, {});
  for (const auto& [name, table] : TablesOf(SqlServerBatches())) {
    EXPECT_NE(LowerAscii(listener.asked).find("'" + name + "'"), std::string::npos) << name;
  }
  for (const auto& [name, view] : ViewsOf(SqlServerBatches())) {
    EXPECT_NE(LowerAscii(listener.asked).find("'" + name + "'"), std::string::npos) << name;
  }
  EXPECT_NE(listener.asked.find("'spPelinHasPermission'"), std::string::npos);
}

TEST_F(SqlServerSchema, Stops_at_the_first_batch_that_is_refused) {
  Listener listener(3);
  EXPECT_THROW(CreateSqlServerSchema(listener, {}), DatabaseError);
  EXPECT_EQ(listener.sent.size(), 3U);
}

TEST_F(SqlServerSchema, Is_not_made_in_a_database_of_the_server_itself) {
  for (const char* name : {"master", "Model", "MSDB", "tempdb"}) {
    Listener server(1000);
    server.name = name;
    try {
      CreateSqlServerSchema(server, {});
      ADD_FAILURE() << name;
    } catch (const InputError& error) {
      EXPECT_NE(std::string(error.what()).find("«" + server.name + "»"), std::string::npos) << error.what();
    }
    EXPECT_TRUE(server.sent.empty());
  }
}

}  // namespace
}  // namespace koru::test
