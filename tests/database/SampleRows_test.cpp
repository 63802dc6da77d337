#include "database/sample/SampleRows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

#include "platform/text/Date.h"

namespace koru::sample {
namespace {

using std::chrono::March;
constexpr Date kSpring = std::chrono::year(2026) / March / 21;
constexpr Date kNextDay = std::chrono::year(2026) / March / 22;

class SampleRows : public testing::Test {
 protected:
  SampleRows() { connection.Execute("create table Good (ID integer, Name text, Price real, Made text)"); }

  /// The rows, each as its quoted values with commas.
  std::string Rows() {
    SqliteStatement select = connection.Prepare(
        "select quote(ID) || ',' || quote(Name) || ',' || quote(Price) || ',' || quote(Made) from Good");
    std::string rows;
    while (select.Step()) rows += std::string(select.Text(0)) + ";";
    return rows;
  }

  SqliteConnection connection{":memory:", SqliteConnection::Mode::Create, std::chrono::milliseconds(0)};
};

}  // namespace

TEST_F(SampleRows, A_value_is_written_to_the_column_that_is_named_beside_it) {
  RowWriter goods = RowWriter::Inserts(connection, "Good");
  goods.Write({{"Price", 2.5}, {"ID", 1}, {"Made", kSpring}, {"Name", "tea"}});
  goods.Write({{"Price", 0}, {"ID", 2}, {"Made", kNextDay}, {"Name", std::string("salt")}});
  EXPECT_EQ(Rows(), "1,'tea',2.5,'2026-03-21';2,'salt',0.0,'2026-03-22';");
}

TEST_F(SampleRows, A_missing_value_is_null_and_a_column_that_is_not_named_keeps_its_default) {
  RowWriter goods = RowWriter::Inserts(connection, "Good");
  goods.Write({{"ID", std::optional(1)}, {"Name", std::optional<std::string>()}});
  EXPECT_EQ(Rows(), "1,NULL,NULL,NULL;");
}

TEST_F(SampleRows, An_update_changes_the_row_of_its_key) {
  RowWriter goods = RowWriter::Inserts(connection, "Good");
  for (int id = 1; id <= 3; ++id) goods.Write({{"ID", id}, {"Name", "tea"}, {"Price", 1}});
  RowWriter::Updates(connection, "Good").Write({{"ID", 2}, {"Price", 7}, {"Name", "salt"}});
  EXPECT_EQ(Rows(), "1,'tea',1.0,NULL;2,'salt',7.0,NULL;3,'tea',1.0,NULL;");
}

TEST_F(SampleRows, A_row_with_other_columns_than_the_first_one_is_refused) {
  RowWriter goods = RowWriter::Inserts(connection, "Good");
  goods.Write({{"ID", 1}, {"Name", "tea"}});
  EXPECT_THROW(goods.Write({{"Name", "salt"}, {"ID", 2}}), std::logic_error);
  EXPECT_THROW(goods.Write({{"ID", 2}}), std::logic_error);
  EXPECT_EQ(Rows(), "1,'tea',NULL,NULL;");
}

}  // namespace koru::sample
