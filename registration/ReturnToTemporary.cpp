#include "registration/ReturnToTemporary.h"

#include <string>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "registration/EarlierDocuments.h"
#include "services/Permission.h"

namespace koru {
namespace {

constexpr const char* kQuestion = "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟";
constexpr const char* kReceiptIsFinal = "به اين شمارش، برگ رسيد نهايي به شماره رايانه اي ";
constexpr const char* kDispatchIsFinal = "به اين شمارش، برگ خروج نهايي به شماره رايانه اي ";
constexpr const char* kNoReturn = " وابسته است. بنابراين امكان بازگشت شمارش به حالت موقت وجود ندارد.";

}  // namespace

void ReturnToTemporary::Run() {
  if (!CheckPermission(shared_, FormPermission::ReturnToTemporary)) return;
  if (Trim(controls_.txtCode.Text()).empty()) return;
  if (shared_.messages.AskQuestion(sentences::kWarning, kQuestion) == kAnswerNo) return;
  if (HasFinalDocument("Select * from tblInventoryReceipt Where Code is not null and ID in "
                       "(Select ReceiptID from tblInventoryCounting Where ID = ",
                       kReceiptIsFinal)) {
    return;
  }
  if (HasFinalDocument("Select * from tblInventoryDispatch Where Code is not null and ID in "
                       "(Select DispatchID from tblInventoryCounting Where ID = ",
                       kDispatchIsFinal)) {
    return;
  }
  const Hourglass busy(shared_.services.screen);
  const auto batch = shared_.data.BeginWriteBatch();
  RemoveEarlierDocuments(shared_.data, controls_.CountingID());
  ClearCode();
  batch->Finish();
  controls_.txtCode.SetText("");
}

bool ReturnToTemporary::HasFinalDocument(FixedSql finalDocumentsOf, const char* message) const {
  const Recordset documents =
      shared_.data.rssqlCommon.Open(SqlText(finalDocumentsOf) + controls_.CountingID() + ")");
  if (documents.RecordCount() == 0) return false;
  shared_.messages.ShowMessage(sentences::kError, message + documents.Field("ID").Text() + kNoReturn);
  return true;
}

void ReturnToTemporary::ClearCode() {
  // In this order: without a number, the counting itself is not renumbered with those after it.
  shared_.data.rssqleditenter.Open(SqlText("Update tblInventoryCounting set Code = Null Where ID = ") +
                                   controls_.CountingID());
  shared_.data.rssqleditenter.Open(SqlText("Update tblInventoryCounting set Code = Code-1 Where Code > ") +
                                   Val(controls_.txtCode.Text()));
}

}  // namespace koru
