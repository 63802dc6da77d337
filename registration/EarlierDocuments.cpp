#include "registration/EarlierDocuments.h"

#include "services/WriteQueue.h"

namespace koru {

void RemoveEarlierDocuments(dteInvCounting& data, double countingID) {
  WriteQueue deletes(data, data.rssqldelenter);
  const auto remove = [&](FixedSql documentsOf) { deletes.Add(SqlText(documentsOf) + countingID + ")"); };
  remove(
      "Delete tblInventoryReceiptDetail Where ReceiptID in "
      "(Select ReceiptID from tblInventoryCounting Where ID = ");
  remove("Delete tblInventoryReceipt Where ID in (Select ReceiptID from tblInventoryCounting Where ID = ");
  remove(
      "Delete tblInventoryDispatchDetail Where DispatchID in "
      "(Select DispatchID from tblInventoryCounting Where ID = ");
  remove("Delete tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where ID = ");
  deletes.Send();
}

}  // namespace koru
