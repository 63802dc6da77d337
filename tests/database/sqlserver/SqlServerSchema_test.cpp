#include "database/sqlserver/SqlServerSchema.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/sqlserver/NeededTables.h"
#include "platform/Errors.h"
#include "platform/Text.h"
#include "tests/database/sqlserver/ScriptTables.h"
#include "tests/support/TestDatabase.h"

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

class SqlServerSchema : public testing::Test {
 protected:
  Columns EmbeddedNames(const std::string& kind) {
    return Lines(embedded_.Rows("select name from sqlite_schema where type='" + kind +
                                "' and name not like 'sqlite[_]%'"));
  }
  Columns EmbeddedColumns(const std::string& table) {
    return Lines(embedded_.Rows("select name from pragma_table_info('" + table + "')"));
  }
  TestDatabase embedded_;
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

TEST_F(SqlServerSchema, Each_batch_is_one_statement_that_creates_one_thing) {
  ASSERT_FALSE(SqlServerBatches().empty());
  for (const SqlText& batch : SqlServerBatches()) {
    const std::vector<std::string> tokens = TokensOf(batch);
    ASSERT_GT(tokens.size(), 3U) << batch.Text();
    EXPECT_EQ(tokens.front(), "create") << batch.Text();
    EXPECT_EQ(std::count(tokens.begin(), tokens.end(), "create"), 1) << batch.Text();
    EXPECT_EQ(std::count(tokens.begin(), tokens.end(), "go"), 0) << batch.Text();
    EXPECT_EQ(std::count(tokens.begin(), tokens.end(), ";"), 0) << batch.Text();
    EXPECT_EQ(std::count(tokens.begin(), tokens.end(), "("), std::count(tokens.begin(), tokens.end(), ")"))
        << batch.Text();
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

/// Takes what it is sent and refuses one.
class Listener : public Database {
 public:
  explicit Listener(std::size_t refused) : refused_(refused) {}
  Recordset Open(const SqlText& statement) override {
    if (sent.size() == refused_)
      throw DatabaseError("There is already an object named so.", 2714, statement.Text());
    sent.push_back(statement.Text());
    return {};
  }
  std::int32_t Call(std::string_view /*procedure*/,
                    const std::vector<std::int32_t>& /*parameters*/) override {
    return 0;
  }
  std::unique_ptr<WriteGroup> BeginWriteGroup() override { return nullptr; }

  std::vector<std::string> sent;

 private:
  std::size_t refused_;
};

TEST_F(SqlServerSchema, Is_made_batch_by_batch_and_tells_how_far_it_is) {
  Listener listener(1000);
  std::vector<std::size_t> told;
  CreateSqlServerSchema(listener, [&](std::size_t done, std::size_t all) {
    told.push_back(done);
    EXPECT_EQ(all, SqlServerBatches().size());
    EXPECT_EQ(done, listener.sent.size());
  });
  EXPECT_EQ(told.size(), SqlServerBatches().size());
  EXPECT_EQ(listener.sent.back(), SqlServerBatches().back().Text());
}

TEST_F(SqlServerSchema, Stops_at_the_first_batch_that_is_refused) {
  Listener listener(3);
  EXPECT_THROW(CreateSqlServerSchema(listener, {}), DatabaseError);
  EXPECT_EQ(listener.sent.size(), 3U);
}

}  // namespace
}  // namespace koru::test
