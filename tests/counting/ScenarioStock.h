#pragma once

#include <optional>

#include "tests/counting/CountingModel.h"

namespace koru::test {

inline constexpr int kGoods = 8;

/// What the documents in the database say of each good in store 2 with its only child 4, for the whole time:
/// set up by kStockDocuments, and worked out by hand.
struct Stock {
  int unit;
  Decimal quantity;
  std::optional<Decimal> rate;
};
inline const Stock kStock[kGoods] = {
    {1, 10 * kOne, 3 * kOne}, {1, 0, std::nullopt},        {3, 7 * kOne + kOne / 2, 12 * kOne + kOne / 2},
    {1, -2 * kOne, 5 * kOne}, {1, 100 * kOne, 1 * kOne},   {3, kOne / 8, 40 * kOne},
    {1, 0, 9 * kOne},         {1, 33 * kOne, std::nullopt}};

inline constexpr const char* kStockDocuments = R"(
delete from tblInventoryCountingDetail; delete from tblInventoryCounting;
insert into tblInventory (ID,ParentID,Name,IsDefault) values (4,2,'قفسه',0);
insert into tblInventoryParent (ID,ChildID) values (2,4);
insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (3,'كيلوگرم',1),(4,'كارتن',12);
insert into tblGoodSaleScale (Barcode,ScaleID) values ('S2',3),('S5',3),('S0',4);
insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values
  (1,1,2,'2025-04-01'),(2,2,4,'2025-05-01'),(3,null,2,'2025-06-01'),(4,3,3,'2025-06-01');
insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values
  (1,'S0',8,2),(2,'S0 ',4,null),(1,'S2',10,11),(2,'S2',0.5,12.5),(1,'S4',100,1),(1,'S5',0.125,40),(1,'S7',33,null),
  (3,'S1',50,70),(4,'S1',50,70),(3,'S0',5,99),(1,'S6',5,9);
insert into tblInventoryDispatch (ID,Code,InventoryID,ReceiveDate) values (1,1,2,'2025-04-02'),(2,2,2,'2025-07-01');
insert into tblInventoryDispatchDetail (DispatchID,Barcode,Qty,Value) values
  (1,'S0',1,2),(2,'S0',1,3),(1,'S2',3,0),(2,'S3',2,5),(2,'S6',5,null);
)";

inline constexpr const char* kRemoveCountings = R"(
delete from tblInventoryCountingDetail; delete from tblInventoryCounting;
delete from tblInventoryReceipt where ID>4; delete from tblInventoryReceiptDetail where ReceiptID>4;
delete from tblInventoryDispatch where ID>2; delete from tblInventoryDispatchDetail where DispatchID>2;
)";

}  // namespace koru::test
