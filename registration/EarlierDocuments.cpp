#include "registration/EarlierDocuments.h"

namespace koru {
namespace {

void Delete(dteInvCounting& data, FixedSql documentsOf, double countingID) {
  data.rssqldelenter.Open(SqlText(documentsOf) + countingID + ")");
}

}  // namespace

void RemoveEarlierDocuments(dteInvCounting& data, double countingID) {
  Delete(data,
         "Delete tblInventoryReceiptDetail Where ReceiptID in "
         "(Select ReceiptID from tblInventoryCounting Where ID = ",
         countingID);
  Delete(data,
         "Delete tblInventoryReceipt Where ID in (Select ReceiptID from tblInventoryCounting Where ID = ",
         countingID);
  Delete(data,
         "Delete tblInventoryDispatchDetail Where DispatchID in "
         "(Select DispatchID from tblInventoryCounting Where ID = ",
         countingID);
  Delete(data,
         "Delete tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting Where ID = ",
         countingID);
}

}  // namespace koru
