#include <gtest/gtest.h>

#include <vector>

#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlText.h"
#include "tests/database/SampleFixture.h"

namespace koru::test {
namespace {

using Statements = SampleTest;

/// Every shape of statement that reads, with keys of the sample that find something.
std::vector<SqlText> Readings() {
  return {
      SqlText("Select * from tblInventoryCounting where ID =1"),
      SqlText("Select FullName from tblUser where ID=1"),
      SqlText("select FullName from tbluser where ID =1"),
      SqlText("select ID,FullName from tbluser order by FullName"),
      SqlText("Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"),
      SqlText("Select ID from tblInventory where IsDefault=1"),
      SqlText("Select * from tblInventory where ParentID=1"),
      SqlText("Select * From tblInventoryUser Where UserID=1 and InventoryID=3"),
      SqlText("Select * from tblPelinReportTemplate where FormTypeID = 806"),
      SqlText("Select * From tblPelinReportTemplate Where ID = 3"),
      SqlText("Select top 1 Name from vwPelinCompany"),
      SqlText("SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"),
      SqlText(
          "select round(isnull(BaseValue,0),0) as Value, tblGood.barcode,FirstCounting,SecondCounting,"
          "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,isnull(ScaleID,-1) as ScaleID,"
          "isnull(tblGoodScale.Name,'') as UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as "
          "GoodName"
          " from tblInventoryCountingDetail Inner Join tblGood on tblInventoryCountingDetail.Barcode="
          "tblGood.Barcode Left Outer Join tblGoodScale On ScaleID=tblGoodScale.ID where CountingID =10"
          " Order By RowNumber"),
      SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
              "LTrim(RTrim(Barcode))="
              "'6260000900012' and ReceiptID in (select ID from tblInventoryReceipt where "
              "ReceiveDate>='2025-03-21' and"
              "  Code is not NULL and (InventoryID=10 or InventoryID in (Select ChildID from "
              "tblInventoryParent Where"
              " ID=10)))"),
      SqlText("Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where"
              " ID=DispatchID and Barcode='6260000900012' and Isnull(Value,0)>0 and "
              "ReceiveDate<='2026-03-20' and "
              " Code is not NULL and (InventoryID=10 or InventoryID in (Select ChildID from "
              "tblInventoryParent Where"
              " ID=10)) Order By ReceiveDate Desc"),
      SqlText(
          "Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt Where "
          "ID=ReceiptID"
          " and Barcode='6260000900043' and Isnull(Value,0)>0 and  Code is not NULL and (InventoryID=10 or"
          " InventoryID in (Select ChildID from tblInventoryParent Where ID=10)) Order By ReceiveDate Desc"),
      SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select "
              "ScaleID from"
              " tblGoodSaleScale Where Barcode = '6260000900012')"),
      SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 Order by ID"),
      SqlText(
          "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where"
          " ContradictionCounting < 0 and CountingID=16 Group By Barcode,ScaleID"),
      SqlText("Select * from tblInventoryReceipt Where Code is not null and ID in (Select ReceiptID from"
              " tblInventoryCounting Where ID = 3)"),
      SqlText(
          "Select * from tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where"
          " ID = 4)"),
      SqlText("Select * from tblPelinCurrencyType Order By Name"),
      SqlText("Select * from tblGoodType Order By ID"),
      SqlText(
          "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as"
          " FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as FarsiFromDate,"
          "isnull(FarsiToDate,'') as FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting"
          " where ID<>-1 and ManualCode >='ش' and Code >=1 and CreatorID =1 and CreateDate >='2024-03-20' and"
          " FromDate >='2024-03-20' and ToDate <='2026-03-20' and (InventoryID =1 or InventoryID in (Select"
          " ChildID from tblInventoryParent where tblInventoryParent.ID=1)) and CounterEmployeeID1 =4 and"
          " CounterConfirmerID =3 and Notes like '%انبار%' and ID in (Select CountingID from"
          " tblInventoryCountingDetail where Barcode like '%626%') and ID in (Select CountingID from"
          " tblInventoryCountingDetail where Barcode in (Select Barcode from tblGood where Name like '%ي%')) "
          "and"
          " ID in (Select CountingID from tblInventoryCountingDetail where Barcode in (Select Barcode from "
          "tblGood"
          " where Code like '%01%'))"),
      SqlText(
          "Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblGood "
          "Where "
          " tblGood.Barcode<>''  and  RetailPrice >= 1000 and  TotalQty >= 1 and  StandardDiscountPercent is "
          "not"
          " null and  Name like '%ي%' and  tblGood.Code like '01%' and  SaleScaleID = 1 and  TypeID = 1 and "
          " (GoodGroupID=1 or GoodGroupID in (Select ChildID from tblGoodGroupParent where ID = 1)) and "
          " (TmpLocationID=100 or TmpLocationID in (Select ChildID from tblBPLocationChilds where ID = 100)) "
          "and "
          " tblGood.BarCode in (Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where"
          " ReceiptID=ID and InventoryID = 3)"),
      SqlText("Select tblGood.barcode from tblGood Where  tblGood.Barcode<>''  and  CurrencyRetailPrice <= "
              "900 and"
              " CCurrencyTypeID = 1 and  PurchaseScaleID = 13"),
      SqlText("Select tblGood.barcode from tblGood Where  tblGood.Barcode<>''  and  Notes like '%انقضا%'"),
  };
}

}  // namespace

TEST_F(Statements, Every_reading_statement_finds_something_in_the_sample) {
  const std::unique_ptr<Database> database =
      SqliteConnector().Connect("Provider=SQLite;Data Source=\"" + File() + "\"");
  for (const SqlText& statement : Readings()) {
    try {
      EXPECT_GT(database->Open(statement).RecordCount(), 0U) << statement.Text();
    } catch (const DatabaseError& error) {
      ADD_FAILURE() << error.ServerText() << ": " << statement.Text();
    }
  }
}

TEST_F(Statements, Parameter_123_is_not_set) {
  const std::unique_ptr<Database> database =
      SqliteConnector().Connect("Provider=SQLite;Data Source=\"" + File() + "\"");
  EXPECT_EQ(database->Open(SqlText("Select * from tblPelinSystemParameters Where ID=123 and Value=1"))
                .RecordCount(),
            0U);
}

}  // namespace koru::test
