#include "tests/contract/DatabaseContract.h"

#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"

namespace koru::test {
namespace {

SqlText InsertUser(int id, const std::string& name) {
  return SqlText("insert into tblUser (ID,FullName) values (") + id + ",'" + Typed(name) + "')";
}

std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

TEST_P(DatabaseContract, Texts_come_back_as_they_were_written) {
  const std::vector<std::string> texts{"شمارش انبار مرکزی",
                                       "ي و ی، ك و ک",
                                       "می\u200Cشود",
                                       "شمارش اول\u00A0",
                                       "نفر 🙂 و 𐎠",
                                       "it''s",
                                       "؟?%_[x]",
                                       "a;b--c/*d*/\"e\" {f} @g",
                                       "line\nline\ttab",
                                       Repeated("كالا", 63) + " end"};
  int id = 0;
  for (const std::string& text : texts) {
    Open(InsertUser(++id, text));
    const std::string expected = text == "it''s" ? "it's" : text;
    EXPECT_EQ(Text(SqlText("select FullName from tblUser where ID=") + id, "FullName"), expected);
  }
}

TEST_P(DatabaseContract, Notes_of_4000_characters_come_back_whole) {
  const std::string notes = Repeated("انبار\u200Cها🙂 ", 400);  // 4000 UTF-16 units
  Open(SqlText("insert into tblInventoryCounting (Notes) values ('") + Typed(notes) + "')");
  EXPECT_EQ(Text(SqlText("select Notes from tblInventoryCounting"), "Notes"), notes);
}

TEST_P(DatabaseContract, Texts_longer_than_one_reading_come_back_whole) {
  const std::string notes =
      "x" + Repeated("🙂", 9000);  // an odd beginning, so that a cut would part a character
  Open(SqlText("insert into tblInventoryCounting (Notes) values ('") + Typed(notes) + "')");
  EXPECT_EQ(Text(SqlText("select Notes from tblInventoryCounting"), "Notes"), notes);
}

TEST_P(DatabaseContract, NULL_empty_and_zero_stay_apart) {
  Open(SqlText(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,FirstCounting,SecondCounting) values "
      "(1,'',NULL,0)"));
  const Recordset records =
      Open(SqlText("select Barcode,FirstCounting,SecondCounting,ScaleID from tblInventoryCountingDetail"));
  ASSERT_EQ(records.RecordCount(), 1U);
  EXPECT_FALSE(records.Field("Barcode").IsNull());
  EXPECT_EQ(records.Field("Barcode").Text(), "");
  EXPECT_TRUE(records.Field("FirstCounting").IsNull());
  EXPECT_FALSE(records.Field("SecondCounting").IsNull());
  EXPECT_EQ(records.Field("SecondCounting").Number(), 0);
  EXPECT_TRUE(records.Field("ScaleID").IsNull());
}

TEST_P(DatabaseContract, Numbers_keep_fifteen_digits) {
  const std::vector<double> numbers{123456789012345, -123456789012.345, 0.1, 0.123456789012345, 1E+15, 2.5E-7,
                                    -0.005,          99999999.9999999};
  for (const double number : numbers) {
    Open(SqlText("delete tblInventoryCountingDetail"));
    Open(SqlText("insert into tblInventoryCountingDetail (CountingID,Barcode,FirstCounting) values (1,'1',") +
         number + ")");
    const Recordset stored = Open(SqlText("select FirstCounting from tblInventoryCountingDetail"));
    EXPECT_EQ(stored.Field("FirstCounting").Number(), number);
    const Recordset summed =
        Open(SqlText("select isnull(sum(isnull(FirstCounting,0)),0) as Qty from tblInventoryCountingDetail"));
    EXPECT_EQ(summed.Field("Qty").Number(), number);
  }
}

TEST_P(DatabaseContract, Whole_numbers_read_as_text_have_no_point) {
  Open(SqlText(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,FirstCounting,BaseValue) values "
      "(7,'1',1,15,1500)"));
  const Recordset records =
      Open(SqlText("select CountingID,FirstCounting,isnull(ScaleID,-1) as ScaleID,"
                   "round(isnull(BaseValue,0),0) as Value from tblInventoryCountingDetail"));
  EXPECT_EQ(records.Field("CountingID").Text(), "7");
  EXPECT_EQ(records.Field("FirstCounting").Text(), "15");
  EXPECT_EQ(records.Field("ScaleID").Text(), "-1");
  EXPECT_EQ(records.Field("Value").Text(), "1500");
}

TEST_P(DatabaseContract, The_largest_keys_come_back_whole) {
  Open(InsertUser(2147483647, "a"));
  EXPECT_EQ(Open(SqlText("select max(ID) as MaxID from tblUser")).Field("MaxID").Integer(), 2147483647);
}

TEST_P(DatabaseContract, Dates_come_back_as_year_month_day) {
  Open(SqlText("insert into tblInventoryCounting (CreateDate,FromDate) values ('2024-03-02',NULL)"));
  const Recordset records = Open(SqlText("select CreateDate,FromDate from tblInventoryCounting"));
  EXPECT_EQ(records.Field("CreateDate").Text(), "2024-03-02");
  EXPECT_TRUE(records.Field("FromDate").IsNull());
  EXPECT_EQ(Open(SqlText("select ID from tblInventoryCounting where CreateDate>='2024-03-02' and "
                         "CreateDate<='2024-03-02'"))
                .RecordCount(),
            1U);
  EXPECT_EQ(Open(SqlText("select ID from tblInventoryCounting where CreateDate<='2024-02-03'")).RecordCount(),
            0U);
}

TEST_P(DatabaseContract, Records_are_counted_and_stand_in_their_order) {
  for (int id = 1; id <= 300; ++id) Open(InsertUser(id, "user " + std::to_string(id)));
  Recordset records = Open(SqlText("select ID,FullName from tblUser order by ID"));
  ASSERT_EQ(records.RecordCount(), 300U);
  for (int id = 1; id <= 300; ++id, records.MoveNext()) {
    EXPECT_EQ(records.Field("ID").Integer(), id);
    EXPECT_EQ(records.Field("FullName").Text(), "user " + std::to_string(id));
  }
  EXPECT_TRUE(records.AtEnd());
  EXPECT_EQ(Open(SqlText("select ID from tblUser where ID=-1")).RecordCount(), 0U);
}

TEST_P(DatabaseContract, Columns_are_found_regardless_of_case_also_without_records) {
  const Recordset none = Open(SqlText("select ID, FullName as Counter1 from tbluser"));
  EXPECT_EQ(none.RecordCount(), 0U);
  EXPECT_EQ(none.ColumnIndex("id"), 0U);
  EXPECT_EQ(none.ColumnIndex("COUNTER1"), 1U);
  EXPECT_THROW(static_cast<void>(none.ColumnIndex("FullName")), DatabaseError);
}

TEST_P(DatabaseContract, A_statement_that_writes_reports_how_many_rows_it_has_written) {
  Open(InsertUser(1, "علي"));
  EXPECT_EQ(Open(InsertUser(2, "مريم")).AffectedRows(), 1);
  EXPECT_EQ(Open(SqlText("update tblUser set FullName='x' where ID>0")).AffectedRows(), 2);
  EXPECT_EQ(Open(SqlText("update tblUser set FullName='y' where ID=3")).AffectedRows(), 0);
  EXPECT_EQ(Open(SqlText("delete tblUser where ID=2")).AffectedRows(), 1);
}

TEST_P(DatabaseContract, Statements_that_only_write_give_no_columns) {
  EXPECT_TRUE(Open(InsertUser(1, "a")).Columns().empty());
  EXPECT_TRUE(Open(SqlText("update tblUser set FullName='b' where ID=99")).Columns().empty());
  EXPECT_TRUE(Open(SqlText("delete tblUser where ID=1")).Columns().empty());
}

TEST_P(DatabaseContract,
       A_failing_statement_reports_the_servers_words_and_itself_and_leaves_what_was_before) {
  Open(InsertUser(1, "a"));
  for (const SqlText& wrong :
       {SqlText("select * from tblNoSuchTable"), SqlText("select NoSuchColumn from tblUser"),
        SqlText("selct 1"), InsertUser(1, "again"),
        SqlText("insert into tblUser (ID,FullName) values (2,NULL)")}) {
    try {
      Open(wrong);
      ADD_FAILURE() << "went through: " << wrong.Text();
    } catch (const DatabaseError& failure) {
      EXPECT_EQ(failure.Statement(), wrong.Text());
      EXPECT_NE(failure.ServerText(), "");
      EXPECT_NE(failure.Code(), 0) << failure.ServerText();
    }
  }
  EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 1U);
}

TEST_P(DatabaseContract, More_than_one_statement_in_a_call_is_refused_and_nothing_runs) {
  Open(InsertUser(1, "a"));
  EXPECT_THROW(Open(SqlText("select ID from tblUser; delete tblUser")), DatabaseError);
  EXPECT_THROW(Open(SqlText("delete tblUser; -- ; \n select 1")), DatabaseError);
  EXPECT_EQ(Open(SqlText("select ID from tblUser;")).RecordCount(), 1U);
}

TEST_P(DatabaseContract, A_text_that_is_never_closed_is_refused) {
  Open(InsertUser(1, "a"));
  EXPECT_THROW(Open(SqlText("delete tblUser where FullName='a")), DatabaseError);
  EXPECT_THROW(Open(SqlText("delete tblUser where FullName='\u0648'x'")), DatabaseError);
  EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 1U);
}

TEST_P(DatabaseContract, Hostile_texts_stay_texts) {
  Open(InsertUser(1, "a"));
  const std::vector<std::string> hostile{"''; delete tblUser --",
                                         "\\",
                                         "''''",
                                         "'' or ''1''=''1",
                                         "?",
                                         "{d ''x''}",
                                         "N''",
                                         "@@version",
                                         "${x}",
                                         "%s%n",
                                         "\u02BC; drop table tblUser --"};
  for (const std::string& text : hostile) {
    EXPECT_EQ(
        Open(SqlText("select ID from tblUser where FullName='") + Typed(text) + "' and ID=1").RecordCount(),
        0U)
        << text;
  }
  EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 1U);
}

TEST_P(DatabaseContract, A_procedure_answers_with_its_return_value) {
  Open(SqlText("insert into tblPelinUserPermission (UserID,FormPermissionID) values (7,80601)"));
  EXPECT_NE(database_->Call("spPelinHasPermission", {7, 80601}), 0);
  EXPECT_EQ(database_->Call("spPelinHasPermission", {7, 80602}), 0);
  EXPECT_EQ(database_->Call("spPelinHasPermission", {8, 80601}), 0);
  EXPECT_THROW(database_->Call("spNoSuchProcedure", {1, 2}), DatabaseError);
  EXPECT_EQ(database_->Call("spPelinHasPermission", {7, 80602}), 0);
}

TEST_P(DatabaseContract, What_a_write_group_wrote_is_there_for_others_when_it_ends) {
  {
    const std::unique_ptr<WriteBatch> group = database_->BeginWriteBatch();
    Open(InsertUser(1, "a"));
    EXPECT_THROW(Open(InsertUser(1, "again")), DatabaseError);
    Open(InsertUser(2, "b"));
    EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 2U);
    group->Finish();
  }
  EXPECT_EQ(subject_->Connect()->Open(SqlText("select ID from tblUser")).RecordCount(), 2U);
}

TEST_P(DatabaseContract, Two_connections_see_each_others_rows) {
  const std::unique_ptr<Database> other = subject_->Connect();
  Open(InsertUser(1, "a"));
  EXPECT_EQ(other->Open(SqlText("select ID from tblUser")).RecordCount(), 1U);
  other->Open(SqlText("delete tblUser where ID=1"));
  EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
}

}  // namespace
}  // namespace koru::test
