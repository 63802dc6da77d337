#include "counting/frmInvCounting.h"

#include "control/services/Permission.h"
#include "counting/CommandStates.h"
#include "counting/CountingHeader.h"
#include "platform/Errors.h"
#include "platform/Text.h"

namespace koru {

frmInvCounting::frmInvCounting(SharedState& shared)
    : Form(shared.surroundings.screen, "frmInvCounting"),
      CountingFormControls(static_cast<Form&>(*this)),
      shared_(shared),
      lines_(flexDetail, txtTotalBelowValue, txtTotalAboveValue, txtTotalValue, shared.data),
      editing_(flexDetail, lines_, shared.messages, shared.DocMode),
      quantity_(flexDetail, gmpInventory, gdpFromDate, gdpToDate, pgbStatus, shared.surroundings.screen,
                shared.data, editing_, lines_),
      storeChange_(shared, gmpInventory, flexDetail, defaultStore_),
      commands_(shared, *this, lines_, storeChange_, defaultStore_),
      temporarySave_(DocumentControls(), shared, [this] { disablelockcomponent(); }),
      finalRegistration_(DocumentControls(), shared, [this] { disablelockcomponent(); }),
      returnToTemporary_(DocumentControls(), shared) {
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
  SetUpLinkedDocuments();
  started_ = true;
}

void frmInvCounting::SetUpStores() {
  gmpInventory.SetConnectionString(shared_.data.ConnectionString());
  gmpInventory.SetCaption("انبارها");
  gmpInventory.ClearSelection();
  gmpInventory.SetTables("tblInventory", "tblInventoryParent");
  const Recordset store =
      shared_.data.rssqlCommon.Open(SqlText("Select ID from tblInventory where IsDefault=1"));
  defaultStore_ = store.RecordCount() == 0 ? StoreChange::kNoDefaultStore : store.Field("ID").Integer();
}

void frmInvCounting::SetUpLinkedDocuments() {
  const auto host = [this](std::string_view className) -> std::unique_ptr<SiblingComponent> {
    try {
      auto component = shared_.surroundings.components.Create(className);
      if (auto* document = dynamic_cast<DocumentComponent*>(component.get())) {
        document->SetConnectionString(shared_.data.ConnectionString());
        document->SetUserID(shared_.user.userID);
      }
      return component;
    } catch (const ComponentError&) {
      return nullptr;  // a suite without the stock documents can still count
    }
  };
  comInvExit_ = host(DocumentComponent::kDispatchClassName);
  comInvReceipt_ = host(DocumentComponent::kReceiptClassName);
}

bool frmInvCounting::ViewInvCounting(std::int32_t id) {
  shared_.CurrentCountingID = id;
  if (!FillInvCountingData(id)) return false;
  shared_.DocMode = DocumentMode::Viewing;
  disablelockcomponent();
  FillInvCounterDetailData(id);
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

void frmInvCounting::OnUnload() { shared_.data.Release(); }

void frmInvCounting::ConnectEvents() {
  cmdNew.Click.Always([this] { commands_.New(); });
  cmdEdit.Click.Always([this] { commands_.Edit(); });
  cmdDelete.Click.Always([this] { commands_.Delete(); });
  cmdDeleteAll.Click.Always([this] { commands_.DeleteAll(); });
  cmdCancel.Click.Always([this] { commands_.Cancel(); });
  cmdExit.Click.Always([this] { Exit(); });
  cmdSearch.Click.Always([this] { static_cast<void>(MayDo(shared_, FormPermission::Search)); });
  cmdCalc.Click.Always([this] { quantity_.CalculateAllLines(); });
  cmdTmpSave.Click.Always([this] { temporarySave_.Run(); });
  cmdIsFinalized.Click.Always([this] { finalRegistration_.Run(); });
  mnuRS.Click.Always([this] { returnToTemporary_.Run(); });
  cmdFunc.Click.Always([this] { returnToTemporary_.Run(); });
  gmpInventory.SelectionChanged.Always([this] { storeChange_.Run(); });
  gdpCreateDate.ValueChanged.Always([this] {
    if (gdpCreateDate.IsEmpty()) gdpCreateDate.SetValue(shared_.surroundings.clock.Today());
  });
  Timer1.Tick.Always([this] { RefreshCommands(shared_.DocMode, *this); });
}

void frmInvCounting::Exit() {
  if (shared_.DocMode == DocumentMode::Editing || shared_.DocMode == DocumentMode::New) {
    commands_.Cancel();
    return;
  }
  Unload();
}

}  // namespace koru
