#include "counting/StoreChange.h"

namespace koru {

void StoreChange::SetUp() {
  gmpInventory_.SetCaption("انبارها");
  gmpInventory_.ClearSelection();
  gmpInventory_.SetTables("tblInventory", "tblInventoryParent");
  const Recordset store =
      shared_.data.rssqlCommon.Open(SqlText("Select ID from tblInventory where IsDefault=1"));
  defaultStore_ = store.RecordCount() == 0 ? kNoDefaultStore : store.Field("ID").Integer();
  gmpInventory_.OfferOnlyLeaves(defaultStore_);  // the store that HasChildren is not asked about
}

void StoreChange::Run() {
  try {
    Test();
  } catch (...) {
    gmpInventory_.ClearSelection();  // a store that could not be tested is not kept
    throw;
  }
}

void StoreChange::Test() {
  if (gmpInventory_.NothingSelected()) return;
  if (shared_.user.userID >= 1 && !MayWorkThere()) {
    shared_.messages.ShowMessage(sentences::kError, "كاربر انتخاب شده در اين انبار مجاز به كار نميباشد.");
    gmpInventory_.ClearSelection();
    return;
  }
  const bool entering = shared_.DocMode == DocumentMode::Editing || shared_.DocMode == DocumentMode::New;
  if (entering && gmpInventory_.SelectedID() != defaultStore_ && HasChildren()) {
    shared_.messages.ShowMessage(sentences::kError, "انبار انتخاب شده فرزند دارد.");
    RestoreDefaultStore();
    return;
  }
  AskAboutLines();
}

bool StoreChange::MayWorkThere() {
  SqlText allowed("Select * From tblInventoryUser Where UserID=");
  allowed += shared_.user.userID;
  allowed += " and InventoryID=";
  allowed += gmpInventory_.SelectedID();
  return shared_.data.rssqlCommon.Open(allowed).RecordCount() > 0;
}

bool StoreChange::HasChildren() {
  const SqlText children = SqlText("Select * from tblInventory where ParentID=") + gmpInventory_.SelectedID();
  return shared_.data.rssqlCommon.Open(children).RecordCount() > 0;
}

void StoreChange::RestoreDefaultStore() {
  if (defaultStore_ == kNoDefaultStore) {
    gmpInventory_.ClearSelection();
    return;
  }
  // The default store is tested like any other: a user who may not work in it does not keep it either.
  gmpInventory_.Select(defaultStore_);
  Test();
}

void StoreChange::AskAboutLines() {
  if (flexDetail_.Rows() < 2) return;
  const int answer = shared_.messages.AskQuestion(
      "نياز به بازسازي", "تغيير انبار به بازسازي مجدد منجر مي شود. آيا ادامه مي دهيد؟");
  if (answer == kAnswerNo) gmpInventory_.ClearSelection();
}

}  // namespace koru
