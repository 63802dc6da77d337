#include "tests/tools/tds-stand-in/SuiteOfGoods.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "database/sqlserver/EmptyScratchDatabase.h"

namespace koru::test {
namespace {

SqlText Barcode(int good) { return SqlText("'") + Typed(std::to_string(6260000000 + good)) + "'"; }

/// Inserts a row for each good of which `values` gives one.
void InsertForGoods(Database& server, FixedSql into, int goods, const std::function<SqlText(int)>& values) {
  constexpr int kRowsOfStatement = 500;
  std::vector<SqlText> statements;
  int rows = 0;
  for (int good = 1; good <= goods; ++good) {
    const SqlText row = values(good);
    if (row.Empty()) continue;
    if (rows++ % kRowsOfStatement == 0) {
      statements.push_back(SqlText(into) + " values ");
    } else {
      statements.back() += ",";
    }
    statements.back() += SqlText("(") + row + ")";
  }
  server.OpenAll(statements, [](std::size_t, const Recordset&) {});
}

}  // namespace

void FillSuite(Database& server, int goods) {
  EmptyScratchDatabase(server);
  server.OpenAll(
      {SqlText("insert into tblInventory (ID,Name,IsDefault) values (2,'انبار مركزي',1)"),
       SqlText("insert into tblUser (ID,FullName) values (7,'علي رضايي')"),
       SqlText("insert into tblInventoryUser (UserID,InventoryID) values (7,2)"),
       SqlText("insert into tblPelinUserPermission (UserID,FormPermissionID) values "
               "(7,806),(7,80601),(7,80602),(7,80603),(7,80604),(7,80605),(7,80606),(7,80607)"),
       SqlText("insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'عدد',1),(4,'كيلو',1)"),
       SqlText("insert into tblInventoryReceipt (Code,InventoryID,ReceiveDate) values (1,2,'2025-04-01')"),
       SqlText("insert into tblInventoryDispatch (Code,InventoryID,ReceiveDate) values "
               "(1,2,'2025-04-02')"),
       SqlText("insert into tblInventoryCounting (InventoryID,CreatorID,CreateDate,FarsiCreateDate,FromDate,"
               "FarsiFromDate,ToDate,FarsiToDate) values "
               "(2,7,'2025-12-20','1404/09/29','2025-03-21','1404/01/01','2025-12-21','1404/09/30')")},
      [](std::size_t, const Recordset&) {});
  InsertForGoods(server, "insert into tblGood (Barcode,Code,Name)", goods,
                 [](int good) { return Barcode(good) + ",'" + good + "','كالا'"; });
  InsertForGoods(server, "insert into tblGoodSaleScale (Barcode,ScaleID)", goods,
                 [](int good) { return good % 2 == 0 ? Barcode(good) + ",4" : SqlText(); });
  InsertForGoods(server, "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value)", goods,
                 [](int good) { return SqlText("1,") + Barcode(good) + "," + (good % 17 + 1) + ",250"; });
  InsertForGoods(
      server, "insert into tblInventoryDispatchDetail (DispatchID,Barcode,Qty,Value)", goods,
      [](int good) { return good % 3 == 0 ? SqlText("1,") + Barcode(good) + ",1,300" : SqlText(); });
  InsertForGoods(server,
                 "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,"
                 "AcceptedCounting,BaseValue)",
                 goods, [](int good) { return SqlText("1,") + Barcode(good) + "," + good + ",1,9,0"; });
}

}  // namespace koru::test
