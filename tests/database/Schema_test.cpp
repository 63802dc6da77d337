#include "database/Schema.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

struct Table {
  std::string name;
  std::vector<std::string> columns;
};

const std::vector<std::string> kDocumentColumns = {"ID",          "Code",
                                                   "InventoryID", "CreatorID",
                                                   "ReceiveDate", "FarsiReceiveDate",
                                                   "CreateDate",  "FarsiCreateDate",
                                                   "Notes"};

/// Every table and view that the statements of the system name, with the columns that they read or write.
const std::vector<Table> kTables = {
    {"tblInventoryCounting",
     {"ID", "Code", "ManualCode", "InventoryID", "CreatorID", "CreateDate", "FarsiCreateDate", "FromDate",
      "FarsiFromDate", "ToDate", "FarsiToDate", "CounterEmployeeID1", "CounterEmployeeID2",
      "CounterEmployeeID3", "CounterConfirmerID", "Notes", "ReceiptID", "DispatchID"}},
    {"tblInventoryCountingDetail",
     {"CountingID", "Barcode", "RowNumber", "ScaleID", "FirstCounting", "SecondCounting", "ThirdCounting",
      "AcceptedCounting", "SystemCounting", "ContradictionCounting", "BaseValue"}},
    {"vwInventoryCounting",
     {"ID",
      "Code",
      "ManualCode",
      "InvName",
      "FullName",
      "FarsiCreateDate",
      "Notes",
      "FarsiFromDate",
      "FarsiToDate",
      "Counter1",
      "Counter2",
      "Counter3",
      "Accepter",
      "CreatorID",
      "CreateDate",
      "FromDate",
      "ToDate",
      "InventoryID",
      "CounterEmployeeID1",
      "CounterEmployeeID2",
      "CounterEmployeeID3",
      "CounterConfirmerID"}},
    {"vwInventoryCountingPrint",
     {"ID",
      "Code",
      "ManualCode",
      "InvName",
      "FarsiCreateDate",
      "FarsiFromDate",
      "FarsiToDate",
      "Counter1",
      "Counter2",
      "Counter3",
      "Accepter",
      "FullName",
      "Notes",
      "RowNumber",
      "Barcode",
      "GoodCode",
      "GoodName",
      "UnitName",
      "FirstCounting",
      "SecondCounting",
      "ThirdCounting",
      "AcceptedCounting",
      "SystemCounting",
      "ContradictionCounting",
      "Shortage",
      "Surplus",
      "BaseValue",
      "ShortageValue",
      "SurplusValue",
      "TotalValue"}},
    {"tblGood",
     {"Barcode", "Code", "Name", "RetailPrice", "CurrencyRetailPrice", "TotalQty", "StandardDiscountPercent",
      "CCurrencyTypeID", "SaleScaleID", "PurchaseScaleID", "TypeID", "GoodGroupID", "TmpLocationID",
      "Notes"}},
    {"tblGoodScale", {"ID", "Name", "ScaleToBaseParent"}},
    {"tblGoodSaleScale", {"Barcode", "ScaleID"}},
    {"vwGoodScaleMajor", {"ID", "Name"}},
    {"tblGoodScaleParent", {"ID", "ChildID"}},
    {"tblGoodType", {"ID", "Name"}},
    {"tblPelinCurrencyType", {"ID", "Name"}},
    {"vwGoodGroup_CodeMajor", {"ID", "Name"}},
    {"tblGoodGroupParent", {"ID", "ChildID"}},
    {"tblInventory", {"ID", "Name", "IsDefault", "ParentID"}},
    {"tblInventoryParent", {"ID", "ChildID"}},
    {"tblInventoryUser", {"UserID", "InventoryID"}},
    {"tblBPLocation", {"ID", "Name"}},
    {"tblBPLocationChilds", {"ID", "ChildID"}},
    {"tblUser", {"ID", "FullName"}},
    {"tblInventoryReceipt", kDocumentColumns},
    {"tblInventoryDispatch", kDocumentColumns},
    {"tblInventoryReceiptDetail",
     {"ReceiptID", "Barcode", "Qty", "ScaleID", "ScaleQty", "Description", "Value"}},
    {"tblInventoryDispatchDetail",
     {"DispatchID", "Barcode", "Qty", "ScaleID", "ScaleQty", "Description", "Value"}},
    {"tblPelinSystemParameters", {"ID", "SystemID", "Value"}},
    {"tblPelinReportTemplate", {"ID", "FormTypeID", "Title", "FilePath"}},
    {"tblPelinUserPermission", {"UserID", "FormPermissionID"}},
    {"vwPelinCompany", {"Name"}},
    {"vwPelinBasePath", {"BasePath"}},
};

std::string CountColumn(TestFile& database, const std::string& table, const std::string& column) {
  return database.Scalar("select count(*) from pragma_table_info('" + table + "') where name = '" + column +
                         "'");
}

}  // namespace

TEST(Schema, Every_table_and_view_has_the_columns_that_statements_name) {
  TestFile database;
  for (const Table& table : kTables) {
    for (const std::string& column : table.columns) {
      EXPECT_EQ(CountColumn(database, table.name, column), "1") << table.name << '.' << column;
    }
  }
}

// "ID=ReceiptID", "On ScaleID=", "Code is not NULL": the statements do not say whose column they mean.
TEST(Schema, Columns_that_statements_name_without_a_table_are_in_one_of_the_joined_tables_only) {
  TestFile database;
  const std::map<std::string, std::vector<std::string>> without = {
      {"tblInventoryCountingDetail", {"ID", "Code", "Name"}},
      {"tblInventoryReceiptDetail", {"ID", "Code", "InventoryID", "ReceiveDate"}},
      {"tblInventoryDispatchDetail", {"ID", "Code", "InventoryID", "ReceiveDate"}},
      {"tblInventoryReceipt", {"Barcode", "Value", "Qty", "ReceiptID"}},
      {"tblInventoryDispatch", {"Barcode", "Value", "Qty", "DispatchID"}},
      {"tblGood", {"ScaleID", "RowNumber", "CountingID", "BaseValue", "Value"}},
      {"tblGoodScale", {"ScaleID", "RowNumber", "CountingID", "BaseValue", "Value"}},
  };
  for (const auto& [table, columns] : without) {
    for (const std::string& column : columns) {
      EXPECT_EQ(CountColumn(database, table, column), "0") << table << '.' << column;
    }
  }
}

TEST(Schema, The_largest_key_after_an_insert_is_the_new_one_and_no_key_is_given_twice) {
  TestFile database;
  const auto check = [&database](const std::string& table) {
    const std::string insert = "insert into " + table + " (InventoryID) values (1)";
    database.Execute(insert + "; " + insert);
    EXPECT_EQ(database.Scalar("select max(ID) from " + table), "2") << table;
    database.Execute("delete from " + table + " where ID = 2");
    database.Execute(insert);
    EXPECT_EQ(database.Scalar("select max(ID) from " + table), "3") << table;
  };
  for (const char* table : {"tblInventoryCounting", "tblInventoryReceipt", "tblInventoryDispatch"})
    check(table);
}

TEST(Schema, Texts_are_found_whichever_keyboard_wrote_them) {
  TestFile database;
  database.Execute("insert into tblGood (Barcode, Name) values ('AB12', 'كيك')");
  EXPECT_EQ(database.Scalar("select Barcode from tblGood where Name = 'کیک'"), "AB12");
  EXPECT_EQ(database.Scalar("select Name from tblGood where Barcode = 'ab۱۲ '"), "كيك");
}

}  // namespace koru::test
