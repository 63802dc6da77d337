#include "adapters/sqlite/SqliteDatabase.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class Embedded : public testing::Test {
 protected:
  std::string RoundTripOfNotes(const std::string& text) {
    database_.Execute("delete from tblInventoryCounting");
    std::string doubled;
    for (const char c : text) doubled += c == '\'' ? std::string("''") : std::string(1, c);
    connection_.Open(SqlText("insert into tblInventoryCounting (Notes) values ('") + Typed(doubled) + "')");
    return connection_.Open(SqlText("select Notes from tblInventoryCounting")).Field("Notes").Text();
  }

  test::TestFile database_;
  SqliteDatabase connection_{
      SqliteConnection(database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0))};
};

TEST_F(Embedded, Texts_of_all_kinds_come_back_as_they_were_written) {
  std::string emoji;
  for (int i = 0; i < 1000; ++i) emoji += "😀ك";
  for (const std::string& text :
       {std::string("يك يادداشت‌ِ سادة ١۲3"), std::string("O'Neil's ''shop'';--"),
        std::string(4000, 'x'), emoji, std::string(" blanks "), std::string("line\r\nbreak\ttab"),
        std::string("?1 @x [a] % _ \\"), std::string()}) {
    EXPECT_EQ(RoundTripOfNotes(text), text);
  }
}

TEST_F(Embedded, NULL_and_the_empty_text_are_kept_apart) {
  connection_.Open(SqlText("insert into tblInventoryCounting (ManualCode,Notes) values (NULL,'')"));
  const Recordset row = connection_.Open(SqlText("select ManualCode,Notes from tblInventoryCounting"));
  EXPECT_TRUE(row.Field("ManualCode").IsNull());
  EXPECT_FALSE(row.Field("Notes").IsNull());
  EXPECT_EQ(
      connection_.Open(SqlText("select ID from tblInventoryCounting where ManualCode is null")).RecordCount(),
      1U);
  EXPECT_EQ(
      connection_.Open(SqlText("select ID from tblInventoryCounting where Notes is null")).RecordCount(), 0U);
}

TEST_F(Embedded, Numbers_lose_nothing) {
  connection_.Open(SqlText(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,FirstCounting,SecondCounting,"
      "ThirdCounting,BaseValue) values (2147483647,'b',-3,0.1,123456789012345,-1.5E-16,NULL)"));
  const Recordset row = connection_.Open(SqlText("select * from tblInventoryCountingDetail"));
  EXPECT_EQ(row.Field("CountingID").Integer(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(row.Field("RowNumber").Integer(), -3);
  EXPECT_EQ(row.Field("FirstCounting").Number(), 0.1);
  EXPECT_EQ(row.Field("SecondCounting").Number(), 123456789012345.0);
  EXPECT_EQ(row.Field("ThirdCounting").Number(), -1.5e-16);
  EXPECT_TRUE(row.Field("BaseValue").IsNull());
}

TEST_F(Embedded, A_statement_is_prepared_once_for_all_its_literals) {
  for (int line = 1; line <= 50; ++line) {
    connection_.Open(
        SqlText("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,FirstCounting) "
                "values (1,'") +
        Typed("b" + std::to_string(line)) + "'," + line + "," + line / 7.0 + ")");
  }
  EXPECT_EQ(connection_.KeptStatements(), 1U);
  EXPECT_EQ(database_.Scalar("select count(*) from tblInventoryCountingDetail"), "50");
}

TEST_F(Embedded, The_number_of_kept_statements_is_bounded) {
  for (int column = 0; column < 200; ++column) {
    SqlText statement("select ID");
    for (int i = 0; i < column; ++i) statement += ",ID";
    connection_.Open(statement + " from tblUser");
  }
  EXPECT_EQ(connection_.KeptStatements(), SqliteDatabase::kKeptStatements);
}

TEST_F(Embedded, An_error_carries_text_code_and_the_statement_as_it_was_sent) {
  try {
    connection_.Open(SqlText("delete tblNothing where id=5"));
    ADD_FAILURE();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Statement(), "delete tblNothing where id=5");
    EXPECT_NE(error.ServerText().find("tblNothing"), std::string::npos);
    EXPECT_NE(error.Code(), 0);
  }
  constexpr int kPrimaryKeyTaken = 1555;
  connection_.Open(SqlText("insert into tblUser (ID,FullName) values (1,'a')"));
  try {
    connection_.Open(SqlText("insert into tblUser (ID,FullName) values (1,'b')"));
    ADD_FAILURE();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Code(), kPrimaryKeyTaken);
    EXPECT_EQ(error.Statement(), "insert into tblUser (ID,FullName) values (1,'b')");
  }
}

TEST_F(Embedded, A_statement_that_failed_once_works_again) {
  const auto insert = [&](int id) {
    connection_.Open(SqlText("insert into tblUser (ID,FullName) values (") + id + ",'x')");
  };
  insert(1);
  EXPECT_THROW(insert(1), DatabaseError);
  insert(2);
  EXPECT_EQ(database_.Scalar("select count(*) from tblUser"), "2");
}

TEST_F(Embedded, An_apostrophe_breaks_its_statement_and_changes_nothing) {
  connection_.Open(SqlText("insert into tblUser (ID,FullName) values (1,'a')"));
  const std::string before = database_.Dump();
  EXPECT_THROW(connection_.Open(SqlText("insert into tblUser (FullName) values ('O'Neil')")), DatabaseError);
  EXPECT_THROW(connection_.Open(SqlText("update tblUser set FullName='x'; delete tblUser where 'a'='a'")),
               DatabaseError);
  EXPECT_EQ(database_.Dump(), before);
}

TEST_F(Embedded, An_empty_statement_and_a_misspelt_name_are_errors) {
  EXPECT_THROW(connection_.Open(SqlText("")), DatabaseError);
  EXPECT_THROW(connection_.Open(SqlText("select \"Nothing\" from tblUser")), DatabaseError);
}

TEST_F(Embedded, A_permission_is_a_row_of_the_permission_table) {
  database_.Execute("insert into tblPelinUserPermission (UserID, FormPermissionID) values (1, 806)");
  EXPECT_EQ(connection_.Call("spPelinHasPermission", {1, 806}), 1);
  EXPECT_EQ(connection_.Call("sppelinhaspermission", {1, 807}), 0);
  EXPECT_EQ(connection_.Call("spPelinHasPermission", {2, 806}), 0);
}

TEST_F(Embedded, No_other_procedure_is_known) {
  EXPECT_THROW(connection_.Call("spPelinDropEverything", {1, 2}), DatabaseError);
  EXPECT_THROW(connection_.Call("spPelinHasPermission", {1}), DatabaseError);
}

}  // namespace
}  // namespace koru
