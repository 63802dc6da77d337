#include "registration/ReturnToTemporary.h"

#include <string>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "registration/EarlierDocuments.h"
#include "services/Permission.h"

namespace koru {
namespace {

constexpr const char* kQuestion = "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟";
constexpr const char* kReceiptIsFinal = "به اين شمارش، برگ رسيد نهايي به شماره رايانه اي ";
constexpr const char* kDispatchIsFinal = "به اين شمارش، برگ خروج نهايي به شماره رايانه اي ";
constexpr const char* kNumber = "شماره ";
constexpr const char* kWasNotStored =
    " در پايگاه داده ثبت نشده بود و از روي فرم برداشته شد. شماره شمارش\u200cهاي ديگر تغيير نكرد.";
constexpr const char* kNoReturn = " وابسته است. بنابراين امكان بازگشت شمارش به حالت موقت وجود ندارد.";

}  // namespace

bool ReturnToTemporary::Run() {
  if (!CheckPermission(shared_, FormPermission::ReturnToTemporary)) return false;
  if (Trim(controls_.txtCode.Text()).empty()) return false;
  if (shared_.messages.AskQuestion(sentences::kWarning, kQuestion) == kAnswerNo) return false;
  if (HasFinalDocument("Select * from tblInventoryReceipt Where Code is not null and ID in "
                       "(Select ReceiptID from tblInventoryCounting Where ID = ",
                       kReceiptIsFinal)) {
    return false;
  }
  if (HasFinalDocument("Select * from tblInventoryDispatch Where Code is not null and ID in "
                       "(Select DispatchID from tblInventoryCounting Where ID = ",
                       kDispatchIsFinal)) {
    return false;
  }
  const Hourglass busy(shared_.services.screen);
  const auto batch = shared_.data.BeginWriteBatch();
  const auto stored = guard_.Stored().ReadCode(controls_.CountingID());
  const bool hadNumber = stored && (!stored->empty() || HasGap());
  bool isReturned = false;
  try {
    isReturned = stored && Return(*stored);
  } catch (const DatabaseError&) {
    ForgetGapIfLost(*batch);
    throw;
  }
  batch->Finish();
  if (!isReturned) {
    guard_.ReportGone();
    return false;
  }
  const std::string shown = controls_.txtCode.Text();
  controls_.txtCode.SetText("");
  guard_.Stored().RememberReturned(static_cast<std::int32_t>(controls_.CountingID()));
  if (!hadNumber) shared_.messages.ShowMessage(sentences::kWarning, kNumber + shown + kWasNotStored);
  return true;
}

bool ReturnToTemporary::HasFinalDocument(FixedSql finalDocumentsOf, const char* message) const {
  const Recordset documents =
      shared_.data.rssqlCommon.Open(SqlText(finalDocumentsOf) + controls_.CountingID() + ")");
  if (documents.RecordCount() == 0) return false;
  shared_.messages.ShowMessage(sentences::kError, message + documents.Field("ID").Text() + kNoReturn);
  return true;
}

/// After a failed statement: a return of which nothing was stored has left no gap.
void ReturnToTemporary::ForgetGapIfLost(WriteBatch& batch) {
  try {
    batch.Finish();
  } catch (const DatabaseError&) {
    gap_.reset();
  }
}

bool ReturnToTemporary::HasGap() const { return gap_ && gap_->countingID == controls_.CountingID(); }

bool ReturnToTemporary::Return(const std::string& storedCode) {
  RemoveEarlierDocuments(shared_.data, controls_.CountingID());
  // In this order: without a number, the counting itself is not renumbered with those after it.
  const Recordset updated = shared_.data.rssqleditenter.Open(
      SqlText("Update tblInventoryCounting set Code = Null Where ID = ") + controls_.CountingID());
  if (updated.AffectedRows() == 0) return false;
  if (!storedCode.empty()) gap_ = {controls_.CountingID(), Val(storedCode)};
  if (!HasGap()) return true;
  shared_.data.rssqleditenter.Open(SqlText("Update tblInventoryCounting set Code = Code-1 Where Code > ") +
                                   gap_->code);
  gap_.reset();
  return true;
}

}  // namespace koru
