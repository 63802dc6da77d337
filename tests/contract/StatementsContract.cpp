#include <string>

#include "tests/contract/DatabaseContract.h"

namespace koru::test {
namespace {

/// Two stores, a good, a unit, a receipt and a dispatch of the good in the second store.
void FillSuite(Database& database) {
  const auto run = [&](const SqlText& statement) { database.Open(statement); };
  run(SqlText("insert into tblInventory (ID,ParentID,Name,IsDefault) values (1,NULL,'انبار مركزي',1)"));
  run(SqlText("insert into tblInventory (ID,ParentID,Name,IsDefault) values (2,1,'انبار دو',0)"));
  run(SqlText("insert into tblInventoryParent (ID,ChildID) values (1,2)"));
  run(SqlText("insert into tblUser (ID,FullName) values (3,'رضا')"));
  run(SqlText("insert into tblGood (Barcode,Code,Name) values ('6260','K1','كاشي سفيد')"));
  run(SqlText("insert into tblGood (Barcode,Code,Name) values ('6261',NULL,'گچ')"));
  run(SqlText("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (5,'عدد',1)"));
  run(SqlText("insert into tblGoodSaleScale (Barcode,ScaleID) values ('6260',5)"));
  run(SqlText("insert into tblInventoryReceipt (Code,InventoryID,ReceiveDate) values (1,2,'2024-02-10')"));
  run(SqlText("insert into tblInventoryDispatch (Code,InventoryID,ReceiveDate) values (1,2,'2024-03-10')"));
}

TEST_P(DatabaseContract, Book_stock_and_rate_are_found_by_the_statements_as_they_are_written) {
  FillSuite(*database_);
  const int receipt =
      Open(SqlText("select Max(ID) as MaxID from tblInventoryReceipt")).Field("MaxID").Integer();
  Open(SqlText("insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (") + receipt +
       ",' 6260 ',10.5,100)");
  Open(SqlText("insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (") + receipt +
       ",'6260',2,150)");
  const Recordset stock = Open(SqlText(
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
      "LTrim(RTrim(Barcode))='6260' and ReceiptID in (select ID from tblInventoryReceipt where "
      "ReceiveDate>='2024-01-01' and ReceiveDate<='2024-12-31' and  Code is not NULL and (InventoryID=1 or "
      "InventoryID in (Select ChildID from tblInventoryParent Where ID=1)))"));
  EXPECT_EQ(stock.Field("Qty").Number(), 12.5);
  const Recordset rate = Open(SqlText(
      "Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where "
      "ID=ReceiptID and Barcode='6260' and Isnull(Value,0)>0 and  Code is not NULL and (InventoryID=1 or "
      "InventoryID in (Select ChildID from tblInventoryParent Where ID=1)) Order By ReceiveDate Desc"));
  ASSERT_EQ(rate.RecordCount(), 1U);
  EXPECT_EQ(rate.Field("Value").Number(), 150);
  const Recordset unit = Open(SqlText(
      "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select ScaleID from "
      "tblGoodSaleScale Where Barcode = '6260')"));
  EXPECT_EQ(unit.Field("Name").Text(), "عدد");
}

TEST_P(DatabaseContract, A_counting_is_saved_registered_given_a_document_searched_printed_and_deleted) {
  FillSuite(*database_);
  Open(SqlText(
      "insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
      "CounterEmployeeID1,"
      "CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,FromDate,FarsiFromDate,"
      "ToDate,"
      "FarsiToDate) values (1,3,'2024-03-20','1403/01/01',3,NULL,Null,NULL,'انبار it''s','م-۱','2024-01-01',"
      "'1402/10/11','2024-03-19','1402/12/29')"));
  const int id = Open(SqlText("select max(id) as maxid from tblInventoryCounting")).Field("maxid").Integer();
  Open(SqlText("Insert Into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,FirstCounting,"
               "SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue)"
               " Values(") +
       id + ",'6260',1,5,1,NULL,NULL,4,6.5,-2.5,100.4)");
  EXPECT_EQ(Text(SqlText("select isnull(max(isnull(code,0)),0) as maxcode from tblInventoryCounting where "
                         "Code is not Null"),
                 "maxcode"),
            "0");
  Open(SqlText("update tblInventoryCounting set Code = 1 where id=") + id);
  const Recordset found = Open(SqlText(
      "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as "
      "FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as FarsiFromDate,"
      "isnull(FarsiToDate,'') as FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting "
      "where ID<>-1 and Notes like '%انبار%' and CreateDate >='2024-03-20' and Code >=1"));
  ASSERT_EQ(found.RecordCount(), 1U);
  EXPECT_EQ(found.Field("InvName").Text(), "انبار مركزي");
  EXPECT_EQ(found.Field("Notes").Text(), "انبار it's");
  EXPECT_EQ(found.Field("ManualCode").Text(), "م-۱");
  EXPECT_EQ(found.Field("Counter1").Text(), "رضا");
  EXPECT_TRUE(found.Field("Counter2").IsNull());
  const Recordset print =
      Open(SqlText("SELECT * From vwInventoryCountingPrint Where ID=") + id + " order by GoodCode");
  ASSERT_EQ(print.RecordCount(), 1U);
  EXPECT_EQ(print.Field("GoodCode").Text(), "K1");
  EXPECT_EQ(print.Field("Shortage").Number(), 2.5);
  EXPECT_EQ(print.Field("ShortageValue").Number(), 250);
  EXPECT_TRUE(print.Field("Surplus").IsNull());
  const Recordset shortages = Open(
      SqlText(
          "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
          "ContradictionCounting < 0 and CountingID=") +
      id + " Group By Barcode,ScaleID");
  EXPECT_EQ(shortages.Field("Qty").Number(), 2.5);
  Open(SqlText("Update tblInventoryCounting set Code = Null Where ID = ") + id);
  Open(SqlText("Update tblInventoryCounting set Code = Code-1 Where Code > 1"));
  Open(SqlText("delete tblInventoryCountingDetail where CountingID=") + id);
  Open(SqlText("delete tblInventoryCounting where id=") + id);
  EXPECT_EQ(Open(SqlText("select ID from tblInventoryCounting")).RecordCount(), 0U);
}

TEST_P(DatabaseContract, A_documents_key_is_that_of_the_row_just_written) {
  FillSuite(*database_);
  const auto newest = [&] {
    return Open(SqlText("select Max(ID) as MaxID from tblInventoryDispatch")).Field("MaxID").Integer();
  };
  const int before = newest();
  Open(SqlText(
      "insert into tblInventoryDispatch (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, createdate,"
      "FarsiCreateDate,Notes) values (1,3,'2024-03-20','1403/01/01','2024-03-20','1403/01/01','شمارش')"));
  const int after = newest();
  EXPECT_GT(after, before);
  Open(SqlText("insert into tblInventoryDispatchDetail (DispatchID,barcode,qty,ScaleID,ScaleQty,Description) "
               "Values(") +
       after + ",'6260',2.5,NULL,2.5,'')");
  Open(SqlText("insert into tblInventoryCounting (InventoryID,DispatchID) values (1,") + after + ")");
  Open(SqlText(
      "Delete tblInventoryDispatchDetail Where DispatchID in (Select DispatchID from tblInventoryCounting "
      "Where InventoryID = 1)"));
  Open(
      SqlText("Delete tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where "
              "InventoryID = 1)"));
  EXPECT_EQ(newest(), before);
  EXPECT_EQ(Open(SqlText("select Barcode from tblInventoryDispatchDetail")).RecordCount(), 0U);
}

TEST_P(DatabaseContract, Goods_are_searched_and_the_shared_tables_read) {
  FillSuite(*database_);
  EXPECT_EQ(
      Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from "
                   "tblGood Where  tblGood.Barcode<>''  and  RetailPrice is null and  Name like '%كاشي%' and "
                   " tblGood.Code like '%K%' and  tblGood.BarCode in (Select Barcode From "
                   "tblGoodSaleScale,tblGoodScale Where ScaleID=ID)"))
          .RecordCount(),
      1U);
  Open(SqlText("insert into tblPelinCompany (ID,Name,BasePath) values (1,'شركت','C:\\reports\\')"));
  EXPECT_EQ(Text(SqlText("Select top 1 Name from vwPelinCompany"), "Name"), "شركت");
  EXPECT_EQ(Text(SqlText("Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"), "BasePath"),
            "C:\\reports\\");
  Open(
      SqlText("insert into tblPelinReportTemplate (ID,FormTypeID,Title,FilePath) values (1,806,'فرم "
              "شمارش','a.rpt')"));
  EXPECT_EQ(Text(SqlText("Select * from tblPelinReportTemplate where FormTypeID = 806"), "Title"),
            "فرم شمارش");
  EXPECT_EQ(Open(SqlText("Select * from tblPelinSystemParameters Where ID=123 and Value=1")).RecordCount(),
            0U);
}

}  // namespace
}  // namespace koru::test
