#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnector.h"

#include "tests/support/TestFile.h"

namespace koru {
namespace {

/// A store 1 with a child 2, a grandchild 3 and a stranger 4; a good in receipts and dispatches of each.
constexpr const char* kMovements = R"(
insert into tblInventory (ID, Name, IsDefault, ParentID) values (1,'a',1,NULL), (2,'b',0,1), (3,'c',0,2), (4,'d',0,NULL);
insert into tblInventoryParent (ID, ChildID) values (1,2), (2,3);
insert into tblGood (Barcode, Code, Name) values ('6260', 'K1', 'كاشي سفيد'), ('6261', NULL, 'گچ'), ('', 'x', 'y');
insert into tblGoodScale (ID, Name, ScaleToBaseParent) values (5,'عدد',1), (6,'كارتن',12), (7,'متر',1);
insert into tblGoodSaleScale (Barcode, ScaleID) values ('6260',6), ('6260',7);
insert into tblInventoryReceipt (ID, Code, InventoryID, ReceiveDate) values
  (1,1,1,'2024-01-10'), (2,2,2,'2024-02-10'), (3,3,3,'2024-02-10'), (4,4,4,'2024-02-10'), (5,NULL,1,'2024-02-10'),
  (6,6,1,'2023-12-31');
insert into tblInventoryReceiptDetail (ReceiptID, Barcode, Qty, Value) values
  (1,' 6260 ',10,100), (2,'۶۲۶۰',5,150), (3,'6260',1000,999), (4,'6260',1000,999), (5,'6260',1000,999), (6,'6260',7,50),
  (1,'6261',3,NULL);
insert into tblInventoryDispatch (ID, Code, InventoryID, ReceiveDate) values (1,1,1,'2024-03-01'), (2,2,2,'2024-04-01');
insert into tblInventoryDispatchDetail (DispatchID, Barcode, Qty, Value) values (1,'6260',4,0), (2,'6260',NULL,NULL);
)";

class StatementsOfTheSystem : public testing::Test {
 protected:
  Recordset Open(const SqlText& statement) { return connection_->Open(statement); }

  test::TestFile database_;
  SqliteConnector connector_;
  std::unique_ptr<Database> connection_ = connector_.Connect(database_.ConnectionText());
};

TEST_F(StatementsOfTheSystem, Book_stock_counts_registered_documents_of_store_and_children_in_the_period) {
  database_.Execute(kMovements);
  const Recordset receipts =
      Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                   "LTrim(RTrim(Barcode))='6260' and "
                   "ReceiptID in (select ID from tblInventoryReceipt where ReceiveDate>='2024-01-01' and "
                   "ReceiveDate<='2024-12-31' and "
                   " Code is not NULL and (InventoryID=1 or InventoryID in (Select ChildID from "
                   "tblInventoryParent Where ID=1)))"));
  EXPECT_EQ(receipts.Field("Qty").Number(), 15);
  const Recordset allTime =
      Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                   "LTrim(RTrim(Barcode))='6260' and "
                   "ReceiptID in (select ID from tblInventoryReceipt where  Code is not NULL and "
                   "(InventoryID=1 or InventoryID in "
                   "(Select ChildID from tblInventoryParent Where ID=1)))"));
  EXPECT_EQ(allTime.Field("Qty").Number(), 22);
  const Recordset dispatches =
      Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
                   "LTrim(RTrim(Barcode))='6260' and "
                   "DispatchID in (select ID from tblInventoryDispatch where  Code is not NULL and "
                   "(InventoryID=1 or InventoryID in "
                   "(Select ChildID from tblInventoryParent Where ID=1)))"));
  EXPECT_EQ(dispatches.Field("Qty").Number(), 4);
  const Recordset unknown =
      Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
                   "LTrim(RTrim(Barcode))='0' and "
                   "DispatchID in (select ID from tblInventoryDispatch where  Code is not NULL and "
                   "(InventoryID=1 or InventoryID in "
                   "(Select ChildID from tblInventoryParent Where ID=1)))"));
  ASSERT_EQ(unknown.RecordCount(), 1U);
  EXPECT_EQ(unknown.Field("Qty").Number(), 0);
}

TEST_F(StatementsOfTheSystem, The_rate_is_that_of_the_latest_document_with_the_plain_barcode) {
  database_.Execute(kMovements);
  const Recordset dispatches =
      Open(SqlText("Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch "
                   "Where ID=DispatchID and "
                   "Barcode='6260' and Isnull(Value,0)>0 and  Code is not NULL and (InventoryID=1 or "
                   "InventoryID in (Select ChildID "
                   "from tblInventoryParent Where ID=1)) Order By ReceiveDate Desc"));
  EXPECT_EQ(dispatches.RecordCount(), 0U);
  Recordset receipts =
      Open(SqlText("Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where "
                   "ID=ReceiptID and "
                   "Barcode='6260' and Isnull(Value,0)>0 and  Code is not NULL and (InventoryID=1 or "
                   "InventoryID in (Select ChildID "
                   "from tblInventoryParent Where ID=1)) Order By ReceiveDate Desc"));
  ASSERT_EQ(receipts.RecordCount(), 2U);
  EXPECT_EQ(receipts.Field("Value").Number(), 150);
  receipts.MoveNext();
  EXPECT_EQ(receipts.Field("Value").Number(), 50);
}

TEST_F(StatementsOfTheSystem, Book_stocks_are_those_of_the_same_statement_read_word_for_word) {
  std::mt19937 random(7);
  const auto below = [&](unsigned count) { return std::to_string(random() % count); };
  database_.Execute("insert into tblInventoryParent (ID, ChildID) values (1,2), (1,3)");
  for (int document = 1; document <= 60; ++document) {
    std::string header = std::to_string(document) + "," + (below(4) == "0" ? "NULL" : "1") + "," + below(5);
    header += ",'2024-0" + std::to_string(1 + random() % 9) + "-01'";
    database_.Execute("insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (" + header +
                      ")");
  }
  for (int line = 0; line < 600; ++line) {
    const std::string values = below(70) + ",' " + below(10) + "'," + (below(9) == "0" ? "NULL" : below(50));
    database_.Execute("insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty) values (" + values +
                      ")");
  }
  for (int good = 0; good < 10; ++good) {
    const Recordset stock =
        Open(SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                     "LTrim(RTrim(Barcode))='") +
             Typed(std::to_string(good)) +
             "' and ReceiptID in (select ID from tblInventoryReceipt where ReceiveDate>='2024-03-01' and  "
             "Code is not NULL "
             "and (InventoryID=1 or InventoryID in (Select ChildID from tblInventoryParent Where ID=1)))");
    const std::string wordForWord = database_.Scalar(
        "select ifnull(sum(Qty),0) from tblInventoryReceiptDetail where trim(Barcode)='" +
        std::to_string(good) +
        "' and ReceiptID in (select ID from tblInventoryReceipt where ReceiveDate>='2024-03-01' and Code is "
        "not null and "
        "(InventoryID=1 or InventoryID in (select ChildID from tblInventoryParent where ID=1)))");
    EXPECT_EQ(stock.Field("Qty").Number(), std::stod(wordForWord));
    EXPECT_GT(stock.Field("Qty").Number(), 0);
  }
}

TEST_F(StatementsOfTheSystem, The_unit_is_the_goods_own_base_unit) {
  database_.Execute(kMovements);
  const Recordset units = Open(SqlText(
      "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select ScaleID from "
      "tblGoodSaleScale Where Barcode = '6260')"));
  ASSERT_EQ(units.RecordCount(), 1U);
  EXPECT_EQ(units.Field("ID").Integer(), 7);
  const Recordset base =
      Open(SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 Order by ID"));
  EXPECT_EQ(base.Field("Name").Text(), "عدد");
}

TEST_F(StatementsOfTheSystem, A_counting_is_saved_registered_given_documents_and_returned) {
  Open(SqlText(
      "insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
      "CounterEmployeeID1,"
      "CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,FromDate,FarsiFromDate,"
      "ToDate,FarsiToDate"
      ") values "
      "(1,2,'2024-03-20','1403/01/01',3,NULL,Null,NULL,'it''s','م-۱','2024-01-01','1402/10/11','2024-03-19',"
      "'1402/12/29')"));
  EXPECT_EQ(Open(SqlText("select max(id) as maxid from tblInventoryCounting")).Field("maxid").Integer(), 1);
  EXPECT_EQ(
      Open(SqlText(
               "select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting where Code is not "
               "Null "))
          .Field("maxcode")
          .Integer(),
      0);
  Open(
      SqlText("Insert Into tblInventoryCountingDetail "
              "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
              "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) "
              "Values(1,'6260',1,5,1,NULL,NULL,4,"
              "6.5,-2.5,100)"));
  Open(SqlText("update tblInventoryCounting set Code = 1 where id=1"));
  Open(SqlText(
      "insert into tblInventoryDispatch (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, createdate,"
      "FarsiCreateDate,Notes) values (1,2,'2024-03-20','1403/01/01','2024-03-20','1403/01/01','شمارش')"));
  EXPECT_EQ(Open(SqlText("select Max(ID) as MaxID from tblInventoryDispatch")).Field("MaxID").Integer(), 1);
  const Recordset shortages = Open(SqlText(
      "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
      "ContradictionCounting < 0 and CountingID=1 Group By Barcode,ScaleID"));
  ASSERT_EQ(shortages.RecordCount(), 1U);
  EXPECT_EQ(shortages.Field("Qty").Number(), 2.5);
  Open(
      SqlText("insert into tblInventoryDispatchDetail (DispatchID,barcode,qty,ScaleID,ScaleQty,Description) "
              "Values(1,'6260',2.5,NULL,2.5,'')"));
  Open(SqlText("Update tblInventoryCounting set DispatchID = 1 Where ID = 1"));
  EXPECT_EQ(
      Open(SqlText(
               "Select * from tblInventoryDispatch Where Code is not null and ID in (Select DispatchID from "
               "tblInventoryCounting Where ID = 1)"))
          .RecordCount(),
      0U);
  Open(
      SqlText("Delete tblInventoryDispatchDetail Where DispatchID in (Select DispatchID from "
              "tblInventoryCounting Where "
              "ID = 1)"));
  Open(SqlText(
      "Delete tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where ID = 1)"));
  Open(SqlText("Update tblInventoryCounting set Code = Null Where ID = 1"));
  Open(SqlText("Update tblInventoryCounting set Code = Code-1 Where Code > 1"));
  EXPECT_EQ(database_.Scalar("select count(*) from tblInventoryDispatch"), "0");
  EXPECT_EQ(database_.Scalar("select count(*) from tblInventoryDispatchDetail"), "0");
  EXPECT_EQ(database_.Rows("select Code, Notes, ManualCode, CounterEmployeeID2 from tblInventoryCounting"),
            "NULL|it's|م-۱|NULL\n");
  Open(SqlText("delete tblInventoryCountingDetail where CountingID=1"));
  Open(SqlText("delete tblInventoryCounting where id=1"));
  EXPECT_EQ(database_.Scalar("select count(*) from tblInventoryCounting"), "0");
}

TEST_F(StatementsOfTheSystem, The_lines_of_a_counting_are_read_in_their_order) {
  database_.Execute(kMovements);
  database_.Execute(
      "insert into tblInventoryCountingDetail (CountingID, Barcode, RowNumber, ScaleID, BaseValue) values "
      "(1,'6261 ',2,NULL,NULL), (1,'6260',1,5,2.5)");
  Recordset lines = Open(SqlText(
      "select round(isnull(BaseValue,0),0) as Value, "
      "tblGood.barcode,FirstCounting,SecondCounting,ThirdCounting,"
      "AcceptedCounting,SystemCounting,ContradictionCounting,isnull(ScaleID,-1) as "
      "ScaleID,isnull(tblGoodScale.Name,'') "
      "as UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from "
      "tblInventoryCountingDetail Inner "
      "Join tblGood on tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On "
      "ScaleID=tblGoodScale.ID where CountingID =1 Order By RowNumber"));
  ASSERT_EQ(lines.RecordCount(), 2U);
  EXPECT_EQ(lines.Field("barcode").Text(), "6260");
  EXPECT_EQ(lines.Field("Value").Number(), 3);
  EXPECT_EQ(lines.Field("UnitName").Text(), "عدد");
  lines.MoveNext();
  EXPECT_EQ(lines.Field("Barcode").Text(), "6261");
  EXPECT_EQ(lines.Field("ScaleID").Integer(), -1);
  EXPECT_EQ(lines.Field("GoodCode").Text(), "");
}

TEST_F(StatementsOfTheSystem, Goods_are_found_by_every_condition) {
  database_.Execute(kMovements);
  const Recordset goods = Open(SqlText(
      "Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblGood "
      "Where  "
      "tblGood.Barcode<>''  and  tblGood.BarCode  like '%26%' and  Name like '%کاشی%' and  "
      "StandardDiscountPercent is "
      "null and  tblGood.BarCode in (Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where "
      "ReceiptID=ID and InventoryID = 2)"));
  ASSERT_EQ(goods.RecordCount(), 1U);
  EXPECT_EQ(goods.Field("GoodName").Text(), "كاشي سفيد");
  const Recordset picked =
      Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from "
                   "tblGood Where  "
                   "tblGood.Barcode<>''  and  tblGood.BarCode in ('6260','۶۲۶۱ ','none')"));
  EXPECT_EQ(picked.RecordCount(), 2U);
  const Recordset none =
      Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from "
                   "tblGood Where  "
                   "tblGood.Barcode<>''  and  RetailPrice <= 1500.5 and  TotalQty >= 0 and CCurrencyTypeID = "
                   "3 and  (GoodGroupID=12 or "
                   "GoodGroupID in (Select ChildID from tblGoodGroupParent where ID = 12)) and  "
                   "(TmpLocationID=1 or TmpLocationID in "
                   "(Select ChildID from tblBPLocationChilds where ID = 1)) and  Notes like 'O''N%'"));
  EXPECT_EQ(none.RecordCount(), 0U);
}

TEST_F(StatementsOfTheSystem, Countings_are_found_by_every_criterion) {
  database_.Execute(kMovements);
  database_.Execute(
      "insert into tblInventoryCounting (ID, InventoryID, CreateDate, FromDate, ToDate, Notes, ManualCode) "
      "values "
      "(1, 2, '2024-03-20', '2024-01-01', '2024-03-19', 'انبار كوچك', 'A5');"
      "insert into tblInventoryCountingDetail (CountingID, Barcode) values (1, '6260')");
  const Recordset found = Open(SqlText(
      "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as "
      "FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as "
      "FarsiFromDate,isnull(FarsiToDate,'') as "
      "FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting where ID<>-1 and (Code is "
      "null)  and ID "
      ">=1 and ManualCode >='a' and ManualCode <='b' and CreateDate >='2024-03-20' and CreateDate "
      "<='2024-03-20' and "
      "(InventoryID =1 or InventoryID in (Select ChildID from tblInventoryParent where "
      "tblInventoryParent.ID=1)) and Notes "
      "like '%کوچک%' and ID in (Select CountingID from tblInventoryCountingDetail where Barcode like "
      "'%626%') and ID in "
      "(Select CountingID from tblInventoryCountingDetail where Barcode in (Select Barcode from tblGood "
      "where Name like "
      "'%كاشي%')) and ID in (Select CountingID from tblInventoryCountingDetail where Barcode in (Select "
      "Barcode from "
      "tblGood where Code like '%k1%'))"));
  ASSERT_EQ(found.RecordCount(), 1U);
  EXPECT_EQ(found.Field("InvName").Text(), "b");
  EXPECT_EQ(found.Field("manualcode").Text(), "A5");
  EXPECT_TRUE(found.Field("FullName").IsNull());
  EXPECT_EQ(Open(SqlText("Select ID from vwInventoryCounting where ID<>-1 and (2=3) ")).RecordCount(), 0U);
}

TEST_F(StatementsOfTheSystem, Everything_else_that_is_read_runs) {
  const std::vector<SqlText> statements = {
      SqlText("Select * from tblPelinSystemParameters Where ID=123 and Value=1"),
      SqlText("Select * from tblPelinReportTemplate where FormTypeID = 806"),
      SqlText("Select * From tblPelinReportTemplate Where ID = 1"),
      SqlText("Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"),
      SqlText("Select top 1 Name from vwPelinCompany"),
      SqlText("Select ID from tblInventory where IsDefault=1"),
      SqlText("select FullName from tbluser where ID =1"),
      SqlText("select ID,FullName from tbluser order by FullName"),
      SqlText("Select * from tblInventoryCounting where ID =1"),
      SqlText("Select * From tblInventoryUser Where UserID=1 and InventoryID=1"),
      SqlText("Select * from tblInventory where ParentID=1"),
      SqlText("SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"),
      SqlText("Select * from tblPelinCurrencyType Order By Name"),
      SqlText("Select * from tblGoodType Order By ID"),
      SqlText("Select * from tblInventoryReceipt Where Code is not null and ID in (Select ReceiptID from "
              "tblInventoryCounting Where ID = 1)"),
  };
  for (const SqlText& statement : statements) {
    EXPECT_EQ(Open(statement).RecordCount(), 0U) << statement.Text();
  }
}

}  // namespace
}  // namespace koru
