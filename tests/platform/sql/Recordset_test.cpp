#include "platform/sql/Recordset.h"

#include <gtest/gtest.h>

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
