#include "counting/frmInvCounting.h"

#include "counting/CommandStates.h"
#include "counting/CountingHeader.h"
#include "platform/text/Text.h"
#include "services/Permission.h"

namespace koru {

frmInvCounting::frmInvCounting(SharedState& shared)
    : Form(shared.services.screen, "frmInvCounting"),
      InvCountingControls(static_cast<Form&>(*this)),
      shared_(shared),
      lines_(flexDetail, txtTotalBelowValue, txtTotalAboveValue, txtTotalValue, shared.data),
      editing_(flexDetail, lines_, shared.messages, shared.DocMode),
      quantity_(flexDetail, gmpInventory, gdpFromDate, gdpToDate, pgbStatus, shared.services.screen,
                shared.data, editing_, lines_),
      storeChange_(shared, gmpInventory, flexDetail, defaultStore_),
      commands_(shared, *this, lines_, storeChange_, defaultStore_),
      temporarySave_(DocumentControls(), shared, [this] { disablelockcomponent(); }),
      finalRegistration_(DocumentControls(), shared, [this] { disablelockcomponent(); }),
      returnToTemporary_(DocumentControls(), shared),
      addGoods_(
          flexDetail, gmpInventory, pgbStatus, shared.services.screen, shared.data, shared.messages,
          quantity_, lines_, [this] { ShowGoodSearch(); }, GoodSearchCondition),
      viewReport_(shared, lblIDVal, reportBaseFolder_, ready_),
      excelExport_(flexDetail, pgbStatus, shared.services.screen, shared.services.spreadsheets),
      linkedDocuments_(shared, lblIDVal) {
  SetCaption("شمارش");
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  ConnectEvents();
}

CountingControls frmInvCounting::DocumentControls() {
  return {*this,          lblIDVal,     txtCode,      txtGNO,      txtNotes,
          gdpReceiveDate, gdpFromDate,  gdpToDate,    mptCounter1, mptCounter2,
          mptCounter3,    mptConfirmer, gmpInventory, flexDetail,  pgbStatus};
}

void frmInvCounting::Load() {
  if (started_) return;
  pgbStatus.SetVisible(false);
  const Recordset base =
      shared_.data.rssqlCommon.Open(SqlText("Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"));
  reportBaseFolder_ = base.RecordCount() == 0 ? std::string() : base.Field("BasePath").Text();
  lines_.SetUp();
  Initialize();
  SetUpStores();
  linkedDocuments_.SetUp();
  started_ = true;
}

void frmInvCounting::SetUpStores() {
  gmpInventory.SetCaption("انبارها");
  gmpInventory.ClearSelection();
  gmpInventory.SetTables("tblInventory", "tblInventoryParent");
  const Recordset store =
      shared_.data.rssqlCommon.Open(SqlText("Select ID from tblInventory where IsDefault=1"));
  defaultStore_ = store.RecordCount() == 0 ? StoreChange::kNoDefaultStore : store.Field("ID").Integer();
}

void frmInvCounting::ShowInvSearch() {
  if (!CheckPermission(shared_, FormPermission::Search)) return;
  if (!invSearch_) {
    invSearch_ = std::make_unique<frmInvSearch>(shared_, [this](std::int32_t id) { return OpenFound(id); });
  }
  invSearch_->Load();
  invSearch_->Show(true);
  Activate();
}

void frmInvCounting::ShowGoodSearch() {
  if (!goodSearch_) {
    goodSearch_ = std::make_unique<frmGoodSearch>(shared_, GoodSearchCondition,
                                                  [this] { return gmpInventory.SelectedID(); });
  }
  goodSearch_->Load();
  goodSearch_->Show(true);
  Activate();
}

bool frmInvCounting::ViewInvCounting(std::int32_t id) {
  shared_.CurrentCountingID = id;
  if (!FillInvCountingData(id)) return false;
  shared_.DocMode = DocumentMode::Viewing;
  disablelockcomponent();
  try {
    FillInvCounterDetailData(id);
  } catch (...) {
    // Some of the lines, or those of the counting before, would be all that the next save leaves of it.
    Clear();
    shared_.DocMode = DocumentMode::Empty;
    disablelockcomponent();
    throw;
  }
  return true;
}

bool frmInvCounting::FillInvCountingData(std::int32_t id) {
  return koru::FillInvCountingData(id, shared_.data, *this);
}

void frmInvCounting::disablelockcomponent() { koru::disablelockcomponent(shared_.DocMode, *this); }

void frmInvCounting::Initialize() { txtCreator.SetText(SignedInFullName(shared_.user.userID, shared_.data)); }

void frmInvCounting::Clear() { ClearCounting(*this); }

void frmInvCounting::Activate() { SetFocus(Trim(lblIDVal.Caption()).empty() ? cmdNew : cmdEdit); }

void frmInvCounting::UserClose() {
  RunEvent([this] { Exit(); });
}

void frmInvCounting::OnUnload() {
  if (invSearch_) invSearch_->Unload();
  if (goodSearch_) goodSearch_->Unload();
  shared_.data.Release();
}

void frmInvCounting::ConnectEvents() {
  cmdNew.Click.Always([this] { commands_.New(); });
  cmdEdit.Click.Always([this] { commands_.Edit(); });
  cmdDelete.Click.Always([this] { commands_.Delete(); });
  cmdDeleteAll.Click.Always([this] { commands_.DeleteAll(); });
  cmdCancel.Click.Always([this] { RunAndTick([this] { commands_.Cancel(); }); });
  cmdExit.Click.Always([this] { Exit(); });
  cmdSearch.Click.Always([this] { ShowInvSearch(); });
  cmdGoods.Click.Always([this] {
    if (const auto added = addGoods_.Run()) GoodsAdded.Raise(*added);
  });
  cmdView.Click.Always([this] { viewReport_.Run(); });
  cmdExcel.Click.Always([this] { excelExport_.Run(); });
  cmdInvExit.Click.Always([this] { linkedDocuments_.OpenDispatch(); });
  cmdInvReceipt.Click.Always([this] { linkedDocuments_.OpenReceipt(); });
  cmdCalc.Click.Always([this] { quantity_.CalculateAllLines(); });
  cmdTmpSave.Click.Always([this] { Save([this] { temporarySave_.Run(); }); });
  cmdIsFinalized.Click.Always([this] { Save([this] { finalRegistration_.Run(); }); });
  mnuRS.Click.Always([this] { returnToTemporary_.Run(); });
  cmdFunc.Click.Always([this] { mnuRS.Click.Raise(); });
  gmpInventory.SelectionChanged.Always([this] { storeChange_.Run(); });
  gdpCreateDate.ValueChanged.Always([this] {
    if (gdpCreateDate.IsEmpty()) gdpCreateDate.SetValue(shared_.services.clock.Today());
  });
  Timer1.Tick.Always([this] { RefreshCommands(shared_.DocMode, *this); });
}

void frmInvCounting::Exit() {
  if (IsBeingEntered()) {
    RunAndTick([this] { commands_.Cancel(); });
    return;
  }
  Unload();
}

bool frmInvCounting::IsBeingEntered() const {
  return shared_.DocMode == DocumentMode::Editing || shared_.DocMode == DocumentMode::New;
}

/// What was typed into the document on the form is not lost without a question.
bool frmInvCounting::OpenFound(std::int32_t id) {
  if (IsBeingEntered()) RunAndTick([this] { commands_.Cancel(); });
  if (IsBeingEntered()) return false;
  const Hourglass hourglass(shared_.services.screen);
  return ViewInvCounting(id);
}

/// Runs a command that ends the entry of a document. The timer comes at once behind it: until it does, the
/// same command could be pressed again, and a second registration takes a second number.
void frmInvCounting::RunAndTick(const std::function<void()>& command) {
  try {
    command();
  } catch (...) {
    Timer1.Fire();
    throw;
  }
  Timer1.Fire();
}

/// A saved document has its save commands off; the keyboard goes to what is done with it next, never to a
/// command that writes.
void frmInvCounting::Save(const std::function<void()>& command) {
  RunAndTick(command);
  if (shared_.DocMode == DocumentMode::Viewing) SetFocus(IsFinal() ? cmdView : cmdEdit);
}

}  // namespace koru
