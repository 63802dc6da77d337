#include "counting/DocumentCommands.h"

#include "counting/CountingHeader.h"
#include "platform/sql/DatabaseError.h"
#include "services/Permission.h"

namespace koru {

void DocumentCommands::New() {
  if (!CheckPermission(shared_, FormPermission::New)) return;
  ClearCounting(controls_);
  SetMode(DocumentMode::New);
  controls_.gdpReceiveDate.SetValue(shared_.services.clock.Today());
  controls_.txtCreator.SetText(SignedInFullName(shared_.user.userID, shared_.data));
  controls_.form.SetFocus(controls_.gmpInventory);
  if (storeChange_.DefaultStore() == StoreChange::kNoDefaultStore) return;
  controls_.gmpInventory.Select(storeChange_.DefaultStore());
  storeChange_.Run();
}

void DocumentCommands::Edit() {
  if (!CheckPermission(shared_, FormPermission::Edit)) return;
  if (!guard_.MayEdit()) return;
  if (controls_.IsFinal()) {
    shared_.messages.ShowMessage(sentences::kError,
                                 "اين شمارش ثبت نهايي شده است و نميتوان آن را اصلاح نمود.");
    return;
  }
  SetMode(DocumentMode::Editing);
}

bool DocumentCommands::Delete() {
  if (!CheckPermission(shared_, FormPermission::Delete)) return false;
  if (controls_.IsFinal()) {
    shared_.messages.ShowMessage(sentences::kError,
                                 "اين شمارش ثبت نهايي شده است و نميتوان آن را ابطال نمود.");
    return false;
  }
  if (shared_.messages.AskQuestion("حذف شمارش", sentences::kAreYouSure) != kAnswerYes) return false;
  const double id = controls_.CountingID();
  const auto batch = guard_.BeginWrite(StoredCountingGuard::Purpose::Delete);
  if (!batch) {
    if (!guard_.IsStored()) LeaveForm();
    return false;
  }
  guard_.Stored().Forget();  // a second try after a failure finds this one's deleted lines
  shared_.data.rssqldelenterdetail.Open(SqlText("delete tblInventoryCountingDetail where CountingID=") + id);
  shared_.data.rssqldelenter.Open(SqlText("delete tblInventoryCounting where id=") + id);
  batch->Finish();
  LeaveForm();
  return true;
}

void DocumentCommands::ShowStoredHeader() {
  try {
    const auto header = ReadCountingHeader(static_cast<std::int32_t>(controls_.CountingID()), shared_.data);
    if (header) ShowCountingHeader(*header, controls_);
    SetMode(DocumentMode::Viewing);
  } catch (const DatabaseError& failure) {
    // A database that is away must not hold the user on the form.
    const int answer = shared_.messages.AskQuestion(
        sentences::kWarning,
        "شمارش ذخيره شده خوانده نشد. آيا فرم بدون ذخيره خالي شود؟\n" + failure.ServerText());
    if (answer == kAnswerYes) LeaveForm();
  }
}

void DocumentCommands::LeaveForm() {
  SetMode(DocumentMode::Empty);
  ClearCounting(controls_);
  guard_.Stored().Forget();
}

void DocumentCommands::DeleteAll() {
  if (controls_.flexDetail.Rows() < 2) return;
  const int answer =
      shared_.messages.AskQuestion(sentences::kWarning, "آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟");
  if (answer != kAnswerYes) return;
  controls_.flexDetail.SetRows(1);
  lines_.UpdateTotalQty();
}

void DocumentCommands::Cancel() {
  if (shared_.messages.AskQuestion("انصراف از ثبت شمارش", sentences::kAreYouSure) != kAnswerYes) return;
  const Hourglass hourglass(shared_.services.screen);
  if (controls_.CountingID() > 0) {
    ShowStoredHeader();
    return;
  }
  ClearCounting(controls_);
  SetMode(DocumentMode::Empty);
  controls_.form.SetFocus(controls_.cmdExit);
}

}  // namespace koru
