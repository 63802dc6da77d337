#include <array>
#include <memory>
#include <thread>

#include "tests/tools/tds-stand-in/StandInServerTest.h"

namespace koru::test {
namespace {

TEST_F(SuiteServerTest, Values_of_every_type_come_back_as_they_were_written) {
  std::string notes = "شمارش ي و ی، ك و ک، می\u200Cشود 🙂 𐎠";
  while (notes.size() < 60'000) notes += " كالاي 🙂";
  Open(SqlText("insert into tblInventoryCounting (Code,Notes,ManualCode,CreateDate,FromDate,ToDate) values "
               "(2147483647,'") +
       Typed(notes) + "','','2024-03-02','',NULL),(NULL,NULL,NULL,NULL,NULL,NULL)");
  Recordset header = Open("select * from tblInventoryCounting order by ID");
  ASSERT_EQ(header.RecordCount(), 2U);
  EXPECT_EQ(header.Field("ID").Integer(), 1);
  EXPECT_TRUE(header.Field("Code").IsWhole());
  EXPECT_EQ(header.Field("Code").Integer(), 2147483647);
  EXPECT_EQ(header.Field("Notes").Text(), notes);
  EXPECT_TRUE(header.Field("ManualCode").IsText());
  EXPECT_EQ(header.Field("ManualCode").Text(), "");
  EXPECT_EQ(header.Field("CreateDate").Text(), "2024-03-02");
  EXPECT_EQ(header.Field("FromDate").Text(), "1900-01-01");
  EXPECT_TRUE(header.Field("ToDate").IsNull());
  EXPECT_TRUE(header.Field("CreatorID").IsNull());
  EXPECT_TRUE(header.Field("FarsiToDate").IsNull());
  header.MoveNext();
  EXPECT_EQ(header.Field("ID").Integer(), 2);
  for (const char* column : {"Code", "Notes", "ManualCode", "CreateDate", "FromDate", "ToDate"}) {
    EXPECT_TRUE(header.Field(column).IsNull()) << column;
  }

  Open(
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,FirstCounting,SecondCounting) "
      "values (1,'',NULL,123456789.012345,NULL),(1,'x',-7,1E+15,-2.5E-7)");
  Recordset lines = Open("select * from tblInventoryCountingDetail order by Barcode");
  ASSERT_EQ(lines.RecordCount(), 2U);
  EXPECT_TRUE(lines.Field("RowNumber").IsNull());
  EXPECT_EQ(lines.Field("FirstCounting").Number(), 123456789.012345);
  EXPECT_TRUE(lines.Field("SecondCounting").IsNull());
  lines.MoveNext();
  EXPECT_EQ(lines.Field("RowNumber").Integer(), -7);
  EXPECT_EQ(lines.Field("FirstCounting").Text(), "1E+15");
  EXPECT_EQ(lines.Field("SecondCounting").Number(), -2.5E-7);
}

TEST_F(SuiteServerTest, Only_a_column_of_days_comes_as_days) {
  Open("insert into tblInventoryCounting (CreateDate) values ('2024-03-02')");
  EXPECT_EQ(Text("select CreateDate from tblInventoryCounting", "CreateDate"), "2024-03-02");
  EXPECT_EQ(Text("select '' as Notes", "Notes"), "");
  EXPECT_EQ(Text("select '' as CreateDate", "CreateDate"), "1900-01-01");
  EXPECT_EQ(Text("select 'x' as CreateDate", "CreateDate"), "x");
}

TEST_F(SuiteServerTest, Rows_of_many_packets_arrive_whole) {
  SqlText insert("insert into tblUser (ID,FullName) values (1,'نام 1')");
  for (int id = 2; id <= 900; ++id) insert += SqlText(",(") + id + ",'نام " + id + "')";
  Open(insert);
  Recordset found = Open("select ID,FullName from tblUser order by ID");
  ASSERT_EQ(found.RecordCount(), 900U);
  for (int id = 1; id <= 900; ++id, found.MoveNext()) {
    EXPECT_EQ(found.Field("ID").Integer(), id);
    EXPECT_EQ(found.Field("FullName").Text(), "نام " + std::to_string(id));
  }
}

TEST_F(SuiteServerTest, Clients_see_each_others_rows_while_all_are_at_work) {
  constexpr int kEach = 50;
  std::array<std::unique_ptr<Database>, 4> databases;
  std::array<std::thread, databases.size()> clients;
  for (std::unique_ptr<Database>& own : databases) own = Connect();
  for (std::size_t client = 0; client < clients.size(); ++client) {
    clients.at(client) = std::thread([client, &own = *databases.at(client)] {
      const int first = static_cast<int>(client) * kEach;
      for (int id = first; id < first + kEach; ++id) {
        own.Open(SqlText("insert into tblUser (ID,FullName) values (") + id + ",'x')");
      }
    });
  }
  for (std::thread& client : clients) client.join();
  EXPECT_EQ(Text("select count(*) as Users from tblUser", "Users"), "200");
}

TEST_F(StandInServerTest, Is_empty_at_first_and_becomes_a_scratch_database_that_can_be_emptied) {
  const auto objects = [&] {
    return Open(
               "select name as Name from sys.objects where schema_id=schema_id() and name in "
               "('tblKoruScratch','vwInventoryCounting','spPelinHasPermission','tblNoSuchTable')")
        .RecordCount();
  };
  EXPECT_EQ(objects(), 0U);
  EmptyScratchDatabase(*database_);
  EXPECT_EQ(objects(), 3U);
  for (int time = 1; time <= 2; ++time) {
    EmptyScratchDatabase(*database_);
    EXPECT_EQ(Open("select ID from tblInventoryReceipt").RecordCount(), 0U);
    Open("insert into tblInventoryReceipt (Code) values (1),(2)");
    EXPECT_EQ(Text("select max(ID) as MaxID from tblInventoryReceipt", "MaxID"), "2");
  }
  Open("delete tblInventoryReceipt");
  Open("insert into tblInventoryReceipt (Code) values (3)");
  EXPECT_EQ(Text("select max(ID) as MaxID from tblInventoryReceipt", "MaxID"), "3");
}

TEST_F(SuiteServerTest, A_numbered_key_is_written_between_identity_insert_on_and_off_alone) {
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblInventoryDispatch (Code,id) values (1,7)"), 544,
                        "Cannot insert explicit value for identity column in table 'tblInventoryDispatch' "
                        "when IDENTITY_INSERT is set to OFF."));
  EXPECT_EQ(Refusal("set identity_insert tblInventoryDispatch on insert into tblInventoryDispatch (ID,Notes) "
                    "values (7,'شمارش') set identity_insert tblInventoryDispatch off"),
            "");
  Open("insert into tblInventoryDispatch (Code) values (1)");
  EXPECT_EQ(Text("select Notes from tblInventoryDispatch where ID=7", "Notes"), "شمارش");
  EXPECT_EQ(Text("select max(ID) as MaxID from tblInventoryDispatch", "MaxID"), "8");
  Open("insert into tblInventoryDispatch (Code) values (1)");
  EXPECT_TRUE(IsRefusal(Refusal("set identity_insert tblInventoryDispatch on insert into "
                                "tblInventoryDispatch (ID) values (7) set identity_insert "
                                "tblInventoryDispatch off"),
                        2627, "tblInventoryDispatch.ID"));
  EXPECT_TRUE(
      IsRefusal(Refusal("set identity_insert tblUser on insert into tblUser (ID,FullName) values (1,'x') "
                        "set identity_insert tblUser off"),
                8106, "tblUser"));
  EXPECT_TRUE(IsRefusal(Refusal("set identity_insert tblInventoryDispatch on insert into "
                                "tblInventoryDispatch (ID) values (9)"),
                        102, "never switched off"));
}

TEST_F(SuiteServerTest, What_the_server_would_not_understand_is_refused_in_words) {
  EXPECT_TRUE(IsRefusal(Refusal("select FullName from tblUser limit 1"), 102, "limit"));
  EXPECT_TRUE(IsRefusal(Refusal("select FullName || 'x' as Name from tblUser"), 102, "||"));
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblUser (ID,FullName) values (1)"), 102, "as many values"));
  EXPECT_TRUE(IsRefusal(Refusal("selct 1"), 102, "selct"));
  EXPECT_TRUE(IsRefusal(Refusal("set dateformat dmy"), 102, "set"));
  EXPECT_EQ(Open("select ID from tblUser").RecordCount(), 0U);
}

TEST_F(SuiteServerTest, Refusals_have_the_servers_numbers_and_the_connection_stays) {
  EXPECT_TRUE(
      IsRefusal(Refusal("select * from tblNoSuchTable"), 208, "Invalid object name 'tblNoSuchTable'."));
  EXPECT_TRUE(
      IsRefusal(Refusal("select NoSuchColumn from tblUser"), 207, "Invalid column name 'NoSuchColumn'."));
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblUser (Nobody) values (1)"), 207, "'Nobody'"));
  EXPECT_TRUE(IsRefusal(Refusal("select ID from tblInventory,tblUser"), 209, "'ID'"));
  Open("insert into tblUser (ID,FullName) values (1,'a')");
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblUser (ID,FullName) values (1,'b')"), 2627, "tblUser.ID"));
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblUser (ID,FullName) values (2,NULL)"), 515, "FullName"));
  EXPECT_TRUE(IsRefusal(Refusal("insert into tblInventoryReceipt (Code) values ('x')"), 245,
                        "tblInventoryReceipt.Code"));
  EXPECT_EQ(Text("select FullName from tblUser", "FullName"), "a");
}

TEST_F(SuiteServerTest, A_procedure_is_called_with_its_parameters) {
  Open("insert into tblPelinUserPermission (UserID,FormPermissionID) values (7,80601),(-8,2147483647)");
  EXPECT_EQ(database_->Call("spPelinHasPermission", {7, 80601}), 1);
  EXPECT_EQ(database_->Call("spPelinHasPermission", {80601, 7}), 0);
  EXPECT_EQ(database_->Call("spPelinHasPermission", {-8, 2147483647}), 1);
  EXPECT_TRUE(IsRefusal(CallRefusal("spNoSuchProcedure", {1}), 2812,
                        "Could not find stored procedure 'spNoSuchProcedure'."));
  EXPECT_TRUE(IsRefusal(CallRefusal("spPelinHasPermission", {7}), 201, "spPelinHasPermission"));
  EXPECT_TRUE(IsRefusal(CallRefusal("spPelinHasPermission", {7, 8, 9}), 8144, "too many"));
  EXPECT_EQ(database_->Call("spPelinHasPermission", {7, 80601}), 1);
}

TEST_F(SuiteServerTest, Servers_have_databases_of_their_own) {
  const StandInServer other;
  Open("insert into tblUser (ID,FullName) values (1,'a')");
  const std::unique_ptr<Database> elsewhere = OdbcConnector().Connect(other.ConnectionText());
  EXPECT_THROW(elsewhere->Open(SqlText("select ID from tblUser")), DatabaseError);
  EmptyScratchDatabase(*elsewhere);
  EXPECT_EQ(elsewhere->Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
}

TEST_F(SuiteServerTest, A_destroyed_server_closes_its_connections) {
  auto going = std::make_unique<StandInServer>();
  const std::unique_ptr<Database> client = OdbcConnector().Connect(going->ConnectionText());
  going.reset();
  EXPECT_THROW(client->Open(SqlText("select '' as Name")), DatabaseError);
}

}  // namespace
}  // namespace koru::test
