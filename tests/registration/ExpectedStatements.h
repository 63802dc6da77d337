#pragma once

#include <string>
#include <vector>

namespace koru {

/// The statements that more than one command must send, in their order, for the counting of key `id`.

inline std::vector<std::string> RemovalOfDocuments(const std::string& id) {
  return {
      "Delete tblInventoryReceiptDetail Where ReceiptID in (Select ReceiptID from tblInventoryCounting Where "
      "ID = " +
          id + ")",
      "Delete tblInventoryReceipt Where ID in (Select ReceiptID from tblInventoryCounting Where ID = " + id +
          ")",
      "Delete tblInventoryDispatchDetail Where DispatchID in (Select DispatchID from tblInventoryCounting "
      "Where "
      "ID = " +
          id + ")",
      "Delete tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where ID = " +
          id + ")"};
}

/// Of the header that CountingDesk::FillHeader puts on the form, for user 7.
inline constexpr const char* kHeaderInsert =
    "insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,FarsiCreateDate, "
    "CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes,ManualCode,"
    "FromDate,FarsiFromDate,ToDate,FarsiToDate) values (3,7,'2024-03-20','1403/01/01',11,NULL,13,14,"
    "'شمارش ''پايان'' سال','م-12','2023-03-21','1402/01/01','2024-03-19','1402/12/29')";
inline constexpr const char* kHeaderUpdateOf1 =
    "update tblInventoryCounting set inventoryID=3,creatorid=7,CreateDate='2024-03-20',"
    "FarsiCreateDate='1403/01/01',CounterEmployeeID1=11,CounterEmployeeID2=NULL,"
    "CounterEmployeeID3=13,CounterConfirmerID=14,FromDate='2023-03-21',"
    "FarsiFromDate='1402/01/01',ToDate='2024-03-19',FarsiToDate='1402/12/29',"
    "Notes='شمارش ''پايان'' سال',ManualCode='م-12' where id=1";
inline constexpr const char* kNewestCounting = "select max(id) as maxid from tblInventoryCounting";
inline constexpr const char* kDeleteLinesOf1 = "Delete tblInventoryCountingDetail Where CountingID = 1";
/// `values` between the brackets.
inline std::string LineInsert(const std::string& values) {
  return "Insert Into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,FirstCounting,"
         "SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) "
         "Values(" +
         values + ")";
}

inline std::string DispatchHeader(const std::string& id) {
  return "insert into tblInventoryDispatch (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, "
         "createdate,FarsiCreateDate,Notes) values (3,7,'2024-03-20','1403/01/01','2024-03-20','1403/01/01',"
         "'سند ايجاد شده از روي شمارش به شماره رايانهاي " +
         id + "')";
}
inline std::string ReceiptHeader(const std::string& id) {
  return "insert into tblInventoryReceipt (inventoryid,creatorid,ReceiveDate,FarsiReceiveDate, "
         "createdate,FarsiCreateDate,Notes) values (3,7,'2024-03-20','1403/01/01','2024-03-20','1403/01/01',"
         "'سند ايجاد شده از روي شمارش به شماره رايانهاي " +
         id + "')";
}

inline constexpr const char* kNewestDispatch = "select Max(ID) as MaxID from tblInventoryDispatch";
inline constexpr const char* kNewestReceipt = "select Max(ID) as MaxID from tblInventoryReceipt";

inline std::string ShortagesOf(const std::string& id) {
  return "Select Barcode,sum(-ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
         "ContradictionCounting < 0 and CountingID=" +
         id + " Group By Barcode,ScaleID";
}
inline std::string SurplusesOf(const std::string& id) {
  return "Select Barcode,sum(ContradictionCounting) as Qty,ScaleID from tblInventoryCountingDetail where "
         "ContradictionCounting > 0 and CountingID=" +
         id + " Group By Barcode,ScaleID";
}

/// `values` follows the document's key: barcode in apostrophes, quantity, unit, quantity.
inline std::string DispatchLine(const std::string& values) {
  return "insert into tblInventoryDispatchDetail (DispatchID,barcode,qty,ScaleID,ScaleQty,Description) "
         "Values(" +
         values + ",'')";
}
inline std::string ReceiptLine(const std::string& values) {
  return "insert into tblInventoryReceiptDetail (ReceiptID,barcode,qty,ScaleID,ScaleQty,Description) "
         "Values(" +
         values + ",'')";
}

/// All documents of a counting without differences.
inline std::vector<std::string> EmptyDocuments(const std::string& id, const std::string& dispatch,
                                               const std::string& receipt) {
  return {DispatchHeader(id), kNewestDispatch,
          ShortagesOf(id),    "Delete tblInventoryDispatch Where ID = " + dispatch,
          ReceiptHeader(id),  kNewestReceipt,
          SurplusesOf(id),    "Delete tblInventoryReceipt Where ID = " + receipt};
}

inline std::vector<std::string> Joined(std::vector<std::string> first,
                                       const std::vector<std::string>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace koru
