#include <string>

#include "tests/tools/tds-stand-in/StandInServerTest.h"

namespace koru::test {
namespace {

/// A database in which nothing has been created.
using StandInSchemaTest = StandInServerTest;

std::string Times(const std::string& text, int times) {
  std::string repeated;
  for (int time = 0; time < times; ++time) repeated += text;
  return repeated;
}

TEST_F(StandInSchemaTest, A_name_is_given_once_regardless_of_its_case_and_kind) {
  Open("create table tblOne (ID int not null primary key)");
  EXPECT_TRUE(IsRefusal(Refusal("create table TBLONE (Other int null)"), 2714,
                        "There is already an object named 'TBLONE' in the database."));
  EXPECT_TRUE(IsRefusal(Refusal("create view tblone as select ID from tblOne"), 2714, "'tblone'"));
  Open("drop table tblOne");
  EXPECT_TRUE(IsRefusal(Refusal("select ID from tblOne"), 208, "Invalid object name 'tblOne'."));
  EXPECT_TRUE(IsRefusal(Refusal("drop table tblOne"), 3701, "'tblOne'"));
  EXPECT_TRUE(IsRefusal(Refusal("truncate table tblOne"), 4701, "\"tblOne\""));
  Open("create table tblOne (Other int null)");
  EXPECT_EQ(Open("select Other from tblOne").RecordCount(), 0U);
}

TEST_F(StandInSchemaTest, Texts_are_held_to_their_length_in_UTF16_units) {
  Open("create table tblOne (ID int not null primary key, Name nvarchar(6) null, Notes nvarchar(max) null)");
  const auto insert = [](int id, const std::string& name) {
    return SqlText("insert into tblOne (ID,Name) values (") + id + ",'" + Typed(name) + "')";
  };
  int id = 0;
  for (const char* fits : {"", "abcdef", "شمارشي", "🙂🙂🙂"})
    EXPECT_EQ(Refusal(insert(++id, fits)), "") << fits;
  for (const char* isLonger : {"abcdefg", "شمارش ي", "a🙂🙂🙂", "🙂🙂🙂🙂"}) {
    EXPECT_TRUE(IsRefusal(Refusal(insert(++id, isLonger)), 8152, "String or binary data would be truncated."))
        << isLonger;
  }
  EXPECT_TRUE(IsRefusal(Refusal("update tblOne set Name='abcdefg' where ID=1"), 8152, "truncated"));
  EXPECT_EQ(Text("select Name from tblOne where ID=1", "Name"), "");
  const std::string notes = Times("شمارش 🙂 ", 9'000);
  Open(SqlText("update tblOne set Notes='") + Typed(notes) + "' where ID=1");
  EXPECT_EQ(Text("select Notes from tblOne where ID=1", "Notes"), notes);
}

TEST_F(StandInSchemaTest, Days_are_days) {
  Open("create table tblOne (ID int not null primary key, FromDate datetime null)");
  Open("insert into tblOne (ID,FromDate) values (1,'2024-02-29'),(2,''),(3,NULL),(4,'1753-01-01')");
  Open("update tblOne set FromDate='' where ID=1");
  Open("update tblOne set FromDate=ltrim(' ') where ID=2");
  EXPECT_EQ(Open("select ID from tblOne where FromDate='1900-01-01'").RecordCount(), 2U);
  const Recordset found = Open("select FromDate from tblOne order by ID");
  EXPECT_EQ(found.FieldOf(0, 0).Text(), "1900-01-01");
  EXPECT_EQ(found.FieldOf(1, 0).Text(), "1900-01-01");
  EXPECT_TRUE(found.FieldOf(2, 0).IsNull());
  EXPECT_EQ(found.FieldOf(3, 0).Text(), "1753-01-01");
  for (const char* noDay : {"x", "1403/01/02", "2024-3-2", "2024-03-02x", " "}) {
    EXPECT_TRUE(
        IsRefusal(Refusal(SqlText("insert into tblOne (ID,FromDate) values (9,'") + Typed(noDay) + "')"), 241,
                  "Conversion failed when converting date and/or time from character string."))
        << noDay;
  }
  for (const char* noSuchDay : {"2023-02-29", "2024-13-02", "2024-00-01", "1752-12-31"}) {
    EXPECT_TRUE(
        IsRefusal(Refusal(SqlText("update tblOne set FromDate='") + Typed(noSuchDay) + "' where ID=1"), 242,
                  "out-of-range"))
        << noSuchDay;
    EXPECT_TRUE(
        IsRefusal(Refusal(SqlText("insert into tblOne (ID,FromDate) values (9,'") + Typed(noSuchDay) + "')"),
                  242, "out-of-range"))
        << noSuchDay;
  }
}

TEST_F(StandInSchemaTest, Days_are_compared_with_days) {
  Open("create table tblOne (ID int not null primary key, FromDate datetime null)");
  Open("insert into tblOne (ID,FromDate) values (1,'1899-12-31'),(2,''),(3,NULL),(4,'2024-02-29')");
  EXPECT_EQ(Open("select ID from tblOne where FromDate>=''").RecordCount(), 2U);
  EXPECT_EQ(Open("select ID from tblOne where tblOne.FromDate = ''").RecordCount(), 1U);
  EXPECT_EQ(Open("select ID from tblOne where FromDate<N'2024-03-01'").RecordCount(), 3U);
  EXPECT_TRUE(IsRefusal(Refusal("select ID from tblOne where FromDate<='1403/01/02'"), 241, "Conversion"));
  EXPECT_TRUE(IsRefusal(Refusal("delete tblOne where FromDate<>'2024-02-30'"), 242, "out-of-range"));
  EXPECT_EQ(Open("select ID from tblOne").RecordCount(), 4U);
}

TEST_F(StandInSchemaTest, Numbers_are_held_to_their_types) {
  Open("create table tblOne (ID int not null primary key, Code int null, Qty float null)");
  EXPECT_EQ(Refusal("insert into tblOne (ID,Code,Qty) values (-2147483648,2147483647,0.1),(2,'7','2.5')"),
            "");
  EXPECT_EQ(Text("select Code from tblOne where ID=2", "Code"), "7");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblOne (ID,Code) values (3,2147483648)"), 8115, "overflow"));
  EXPECT_TRUE(IsRefusal(Refusal("update tblOne set Code='x'"), 245, "tblOne.Code"));
  EXPECT_TRUE(IsRefusal(Refusal("update tblOne set Qty='x'"), 8114, "to float"));
}

TEST_F(StandInSchemaTest, What_is_left_out_is_the_default_or_NULL_if_that_may_be) {
  Open(
      "create table tblOne (ID int not null primary key, IsDefault bit not null default 0, Name nvarchar(5) "
      "null)");
  Open("insert into tblOne (ID) values (1)");
  EXPECT_EQ(Text("select IsDefault from tblOne", "IsDefault"), "0");
  EXPECT_TRUE(Open("select Name from tblOne").Field("Name").IsNull());
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblOne (Name) values ('x')"), 515, "tblOne.ID"));
  EXPECT_TRUE(IsRefusal(Refusal("update tblOne set IsDefault=NULL"), 515, "tblOne.IsDefault"));
}

TEST_F(StandInSchemaTest, Keys_are_found_once_alone_or_together) {
  Open("create table tblOne (ID int not null, ChildID int not null, primary key (ID, ChildID))");
  Open("create table tblTwo (Barcode nvarchar(100) not null primary key)");
  Open("insert into tblOne (ID,ChildID) values (1,1),(1,2)");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblOne (ID,ChildID) values (1,2)"), 2627, "tblOne.ChildID"));
  Open("insert into tblTwo (Barcode) values ('G1')");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblTwo (Barcode) values ('g1')"), 2627, "tblTwo.Barcode"));
}

TEST_F(StandInSchemaTest, Numbers_of_an_identity_are_never_given_again) {
  Open("create table tblOne (ID int not null identity(1,1) primary key, Code int null)");
  Open("insert into tblOne (Code) values (7),(7)");
  Open("delete tblOne");
  Open("insert into tblOne (Code) values (7)");
  EXPECT_EQ(Text("select ID from tblOne", "ID"), "3");
  Open("truncate table TBLONE");
  Open("insert into tblOne (Code) values (7)");
  EXPECT_EQ(Text("select ID from tblOne", "ID"), "1");
  EXPECT_TRUE(IsRefusal(Refusal("create table tblTwo (ID int not null identity(5,1) primary key)"), 50000,
                        "identity(5,1)"));
}

TEST_F(StandInSchemaTest, A_computed_column_is_shown_and_not_written) {
  Open(
      "create table tblOne (Barcode nvarchar(100) not null, TrimmedBarcode as ltrim(rtrim(Barcode)) "
      "persisted, "
      "Qty float null)");
  Open("insert into tblOne (Barcode,Qty) values (' x ',2)");
  const Recordset found = Open("select * from tblOne where trimmedbarcode='X'");
  ASSERT_EQ(found.RecordCount(), 1U);
  EXPECT_EQ(found.Columns(), (std::vector<std::string>{"Barcode", "TrimmedBarcode", "Qty"}));
  EXPECT_EQ(found.Field("TrimmedBarcode").Text(), "x");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblOne (Barcode,TrimmedBarcode) values ('y','y')"), 271,
                        "'TrimmedBarcode' cannot be modified"));
  EXPECT_TRUE(IsRefusal(Refusal("update tblOne set TrimmedBarcode='y'"), 271, "'TrimmedBarcode'"));
}

TEST_F(StandInSchemaTest, Indexes_are_of_columns_that_are_there_and_one_is_clustered) {
  Open("create table tblOne (Code int null, Barcode nvarchar(9) not null, Trimmed as ltrim(rtrim(Barcode)))");
  Open("create table tblTwo (ID int not null primary key, Code int null)");
  EXPECT_EQ(Refusal("create clustered index ixCode on tblOne (Code)"), "");
  EXPECT_TRUE(IsRefusal(Refusal("create clustered index ixBarcode on tblOne (Barcode)"), 1902, "'tblOne'"));
  EXPECT_TRUE(IsRefusal(Refusal("create clustered index ixTwo on tblTwo (Code)"), 1902, "'tblTwo'"));
  EXPECT_EQ(Refusal("create index ixTrimmed on tblOne (Trimmed, Code) include (Barcode)"), "");
  EXPECT_EQ(Refusal("create index ixCode on tblTwo (Code desc)"), "") << "a table's own names";
  EXPECT_TRUE(IsRefusal(Refusal("create index IXCODE on tblTwo (ID)"), 1913, "'IXCODE'"));
  EXPECT_TRUE(IsRefusal(Refusal("create index ixOther on tblOne (Missing)"), 207, "Missing"));
  EXPECT_TRUE(IsRefusal(Refusal("create index ixOther on tblOne (Code) include (Missing)"), 207, "Missing"));
  EXPECT_TRUE(IsRefusal(Refusal("create index ixOther on tblThree (Code)"), 1088, "tblThree"));
  EXPECT_EQ(Refusal("create unique index ixOther on tblTwo (Code) include (ID)"), "");
  Open("insert into tblTwo (ID,Code) values (1,5)");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblTwo (ID,Code) values (2,5)"), 2601, "tblTwo.Code"));
}

TEST_F(StandInSchemaTest, Views_are_of_tables_that_are_there_and_keep_their_texts) {
  EXPECT_TRUE(IsRefusal(Refusal("create view vwOne as select ID from tblOne"), 208, "'tblOne'"));
  Open("create table tblOne (ID int not null primary key, Name nvarchar(20) null, Qty float null)");
  Open("insert into tblOne (ID,Name,Qty) values (1,'b',1.5),(2,NULL,NULL),(3,'B',2.5),(4,'A',-1)");
  EXPECT_TRUE(IsRefusal(Refusal("create view vwOne as select Missing from tblOne"), 207, "'Missing'"));
  EXPECT_TRUE(IsRefusal(Refusal("create view vwOne as select ID,Name as id from tblOne"), 4506, "'vwOne'"));
  EXPECT_EQ(Refusal("create view vwOne as -- it's\nselect top 3 ID, isnull(Name, N'?') as Name, "
                    "case when Qty > 1.25 then 'it''s' else 'ي' end as Word from tblOne order by ID"),
            "");
  const Recordset found = Open("select * from vwOne order by Name,ID");
  ASSERT_EQ(found.RecordCount(), 3U);
  EXPECT_EQ(found.FieldOf(0, 1).Text(), "?");
  EXPECT_EQ(found.FieldOf(1, 1).Text(), "b");
  EXPECT_EQ(found.FieldOf(2, 1).Text(), "B");
  EXPECT_EQ(found.FieldOf(0, 2).Text(), "ي");
  EXPECT_EQ(found.FieldOf(2, 2).Text(), "it's");
  Open("drop table tblOne");
  EXPECT_TRUE(IsRefusal(Refusal("select * from vwOne"), 208, "Invalid object name 'tblOne'."));
}

TEST_F(StandInSchemaTest, A_procedure_answers_what_it_says) {
  EXPECT_TRUE(IsRefusal(CallRefusal("spHas", {1, 2}), 2812, "Could not find stored procedure 'spHas'."));
  Open(
      "create procedure spHas @User int, @Right int as begin set nocount on if exists (select 1 from "
      "tblRight "
      "where RightID = @right and UserID in (@User, -1)) return 5 return 3 end");
  EXPECT_TRUE(IsRefusal(CallRefusal("spHas", {1, 2}), 208, "'tblRight'"));
  Open("create table tblRight (UserID int not null, RightID int not null)");
  Open("insert into tblRight (UserID,RightID) values (1,2),(-1,4)");
  EXPECT_EQ(database_->Call("sphas", {1, 2}), 5);
  EXPECT_EQ(database_->Call("spHas", {2, 1}), 3);
  EXPECT_EQ(database_->Call("spHas", {7, 4}), 5);
  EXPECT_TRUE(IsRefusal(Refusal("create procedure spOther @A int as begin delete tblRight end"), 50000,
                        "a procedure of this form: spOther"));
  Open("drop procedure spHas");
  EXPECT_TRUE(IsRefusal(CallRefusal("spHas", {1, 2}), 2812, "'spHas'"));
}

TEST_F(StandInSchemaTest, Nothing_is_left_of_a_change_that_fails) {
  Open("create table tblOne (ID int not null primary key)");
  EXPECT_TRUE(IsRefusal(Refusal("create view vwOne as select Missing from tblOne"), 207, "'Missing'"));
  EXPECT_EQ(Refusal("create view vwOne as select ID from tblOne"), "");
  EXPECT_TRUE(IsRefusal(Refusal("alter table tblOne add Other int null"), 50000, "does not know: alter"));
}

}  // namespace
}  // namespace koru::test
