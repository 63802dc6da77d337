#include "platform/sql/Recordset.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

Recordset TwoRows() {
  Recordset rows({"ID", "Name", "Qty"});
  rows.AppendInteger(1);
  rows.AppendText("كالا");
  rows.AppendReal(2.5);
  rows.AppendInteger(2);
  rows.AppendText("");
  rows.AppendNull();
  return rows;
}

TEST(Recordset, Is_walked_from_the_first_record_to_the_end) {
  Recordset rows = TwoRows();
  EXPECT_EQ(rows.RecordCount(), 2U);
  EXPECT_EQ(rows.Field("id").Integer(), 1);
  EXPECT_EQ(rows.Field("NAME").Text(), "كالا");
  EXPECT_EQ(rows.Field("Qty").Text(), "2.5");
  rows.MoveNext();
  EXPECT_EQ(rows.Field("ID").Integer(), 2);
  rows.MoveNext();
  EXPECT_TRUE(rows.AtEnd());
  rows.MoveFirst();
  EXPECT_EQ(rows.Field("ID").Integer(), 1);
}

TEST(Recordset, Null_is_kept_apart_from_empty) {
  Recordset rows = TwoRows();
  rows.MoveNext();
  EXPECT_FALSE(rows.Field("Name").IsNull());
  EXPECT_TRUE(rows.Field("Qty").IsNull());
  EXPECT_EQ(rows.Field("Qty").Text(), "");
  EXPECT_EQ(rows.Field("Qty").Number(), 0);
}

TEST(Recordset, A_missing_column_or_record_is_a_database_error) {
  Recordset rows = TwoRows();
  EXPECT_THROW(static_cast<void>(rows.Field("Code")), DatabaseError);
  rows.MoveNext();
  rows.MoveNext();
  EXPECT_THROW(static_cast<void>(rows.Field("ID")), DatabaseError);
  EXPECT_THROW(static_cast<void>(Recordset({"ID"}).Field("ID")), DatabaseError);
}

Recordset ManyRows(int rows) {
  Recordset records({"ID", "Name", "Qty", "Note"});
  for (int row = 0; row < rows; ++row) {
    records.AppendInteger(row);
    records.AppendText(std::string(static_cast<std::size_t>(row % 7), 'x'));
    records.AppendReal(row + 0.5);
    records.AppendNull();
  }
  return records;
}

TEST(Recordset, A_long_list_is_read_in_any_order) {
  constexpr int kRows = 1'000;
  const Recordset records = ManyRows(kRows);
  ASSERT_EQ(records.RecordCount(), kRows);
  for (int row = kRows - 1; row >= 0; --row) {
    const auto record = static_cast<std::size_t>(row);
    EXPECT_EQ(records.FieldOf(record, 0).Integer(), row);
    EXPECT_EQ(records.FieldOf(record, 1).Text().size(), record % 7);
    EXPECT_EQ(records.FieldOf(record, 2).Number(), row + 0.5);
    EXPECT_TRUE(records.FieldOf(record, 3).IsNull());
  }
}

TEST(Recordset, A_list_that_is_forgotten_while_it_is_read_gives_each_record_once) {
  constexpr int kRows = 1'024;
  Recordset records = ManyRows(kRows);
  int row = 0;
  for (; !records.AtEnd(); records.MoveNextAndForget(), ++row) EXPECT_EQ(records.Field("ID").Integer(), row);
  EXPECT_EQ(row, kRows);
  EXPECT_EQ(records.RecordCount(), kRows);
  records.MoveFirst();
  EXPECT_THROW(static_cast<void>(records.Field("ID")), DatabaseError);
}

TEST(Recordset, Texts_and_numbers_survive_a_move_of_the_recordset) {
  Recordset rows = TwoRows();
  const Value name = rows.Field("Name");
  const Recordset moved = std::move(rows);
  EXPECT_EQ(name.Text(), "كالا");
  EXPECT_EQ(moved.FieldOf(0, 2).Number(), 2.5);
}

TEST(Value, Reads_keys_numbers_and_dates) {
  EXPECT_EQ(Value(2147483647.0).Integer(), 2147483647);
  EXPECT_EQ(Value(2.5).Integer(), 2) << "half to even";
  EXPECT_EQ(Value(357.99999999999994).Integer(), 358) << "binary noise";
  EXPECT_EQ(Value(-357.99999999999994).Integer(), -358);
  EXPECT_THROW(static_cast<void>(Value(std::int64_t{2147483648}).Integer()), OverflowError);
  EXPECT_EQ(Value(std::string_view("12abc")).Number(), 12);
  EXPECT_EQ(Value(std::string_view("2025-03-21")).AsDate(), std::chrono::year{2025} / 3 / 21);
  EXPECT_EQ(Value().AsDate(), std::nullopt);
  EXPECT_EQ(Value(5.0).Text(), "5");
}

}  // namespace
}  // namespace koru
