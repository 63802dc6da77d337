#include "counting/frmInvCounting.h"

#include <utility>

#include "counting/CommandSentences.h"
#include "counting/CommandStates.h"
#include "counting/CountingHeader.h"
#include "counting/EntrySentences.h"
#include "counting/GoodsReport.h"
#include "counting/controls/DocumentModes.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "search/GoodCondition.h"
#include "services/Permission.h"

namespace koru {
namespace {

/// After that many ticks of its timer, the form gives the database a moment.
constexpr int kIdleTicks = 5;

constexpr const char* kEnterGoesDown = "EnterGoesDown";

}  // namespace

frmInvCounting::frmInvCounting(SharedState& shared)
    : Form(shared.services.screen, "frmInvCounting"),
      InvCountingControls(static_cast<Form&>(*this)),
      shared_(shared),
      lines_(*this, shared),
      editing_(*this, shared, lines_),
      history_(*this),
      acceptedCounts_(*this, shared.messages),
      finder_(*this, flexDetail, shared.services.preferences),
      quantity_(*this, shared, lines_, editing_),
      addGoods_(*this, shared, lines_),
      importCounts_(*this, shared),
      guard_(shared),
      storeChange_(*this, shared),
      storeOfFigures_(*this, shared.messages),
      figuresAge_(*this, shared.services.clock),
      stockCheck_(*this, shared, lines_, quantity_, figuresAge_),
      commands_(*this, shared, lines_, storeChange_, guard_),
      temporarySave_(*this, shared, guard_),
      finalRegistration_(*this, shared, guard_),
      returnToTemporary_(*this, shared, guard_),
      viewReport_(*this, shared),
      excelExport_(*this, shared),
      linkedDocuments_(*this, shared),
      drafts_(*this, shared, lines_, guard_) {
  SetCaption("شمارش");
  OnFailure = [this](const std::exception& failure) {
    shared_.messages.ShowFailure(failure);
    pgbStatus.SetVisible(false);
  };
  ConnectEvents();
  ReadPreferences();
}

frmInvCounting::~frmInvCounting() {
  if (goodSearch_) goodSearch_->Unload();
}

void frmInvCounting::Load() {
  if (started_) return;
  pgbStatus.SetVisible(false);
  viewReport_.ReadBaseFolder();
  lines_.SetUp();
  Initialize();
  storeChange_.SetUp();
  linkedDocuments_.SetUp();
  started_ = true;
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

void frmInvCounting::TakeGoodSearchOf(frmInvCounting& unloaded) {
  goodSearch_ = std::move(unloaded.goodSearch_);
  if (goodSearch_)
    goodSearch_->HandTo([this](SqlText condition) { GoodSearchCondition = std::move(condition); });
}

const SqlText& frmInvCounting::SearchGoods() {
  if (!goodSearch_) {
    goodSearch_ = std::make_unique<frmGoodSearch>(
        shared_, [this](SqlText condition) { GoodSearchCondition = std::move(condition); });
  }
  goodSearch_->Load(gmpInventory.SelectedID());
  goodSearch_->Show(true);
  Activate();
  return GoodSearchCondition;
}

void frmInvCounting::AddSearchedGoods() {
  const auto search = [this]() -> const SqlText& { return SearchGoods(); };
  const auto before = BarcodesOf(flexDetail);
  const auto added = addGoods_.Run(search);
  if (!added) return;
  figuresAge_.LinesAdded(*added);
  GoodsAdded.Raise(*added);
  const GoodsReport report = ReportOnGoods(*added, goodSearch_->Picked(), before, flexDetail);
  CommandReported.Raise(report.sentence);
  if (!report.message.empty()) shared_.messages.ShowMessage(sentences::kWarning, report.message);
}

void frmInvCounting::OfferScanned(std::string barcode) {
  if (!IsBeingEntered()) return;
  cmdAddScanned.SetVisible(false);  // another barcode is another offer
  scannedBarcode_ = std::move(barcode);
  cmdAddScanned.SetVisible(true);
}

void frmInvCounting::AddScannedGood() {
  const auto added = addGoods_.Add(GoodCondition::OfGood(scannedBarcode_));
  if (!added) return;
  cmdAddScanned.SetVisible(false);
  figuresAge_.LinesAdded(*added);
  GoodsAdded.Raise(*added);
  CommandReported.Raise(*added > 0 ? "كالاي اسكن شده افزوده شد." : "كالايي با اين باركد تعريف نشده است.");
}

bool frmInvCounting::ViewInvCounting(std::int32_t id) {
  shared_.CurrentCountingID = id;
  // A save after a partial change would write one counting over another: all of the header is read before
  // anything is shown, and a form that cannot be filled is emptied.
  const auto header = ReadCountingHeader(id, shared_.data);
  if (!header) return false;
  try {
    ShowCountingHeader(*header, *this);
    SetDocumentMode(DocumentMode::Viewing, *this, shared_);
    // The header that is shown, and before the lines are read: a later comparison finds what another station
    // changes in between.
    guard_.Stored().Remember(id, header->counting);
    FillInvCounterDetailData(id);
    storeOfFigures_.Follow();
    figuresAge_.Forget();
  } catch (...) {
    Clear();
    guard_.Stored().Forget();
    SetDocumentMode(DocumentMode::Empty, *this, shared_);
    RefreshCommands();
    throw;
  }
  RefreshCommands();
  return true;
}

bool frmInvCounting::ContinueDraft(LeftDraft& draft) {
  const bool isNew = draft.Contents().mode == DocumentMode::New;
  if (isNew && !CheckPermission(shared_, FormPermission::OpenForNew)) return false;
  if (!CheckPermission(shared_, isNew ? FormPermission::New : FormPermission::Edit)) return false;
  drafts_.Continue(draft);
  linesAreStored_ = false;
  entryIsWritten_ = false;
  history_.Clear();
  finder_.Apply();
  storeOfFigures_.Follow();
  figuresAge_.Forget();
  RefreshCommands();
  SetFocus(flexDetail);
  return true;
}

void frmInvCounting::FillInvCounterDetailData(std::int32_t id) {
  lines_.FillInvCounterDetailData(id);
  linesAreStored_ = true;
  entryIsWritten_ = false;
  finder_.Apply();
}

void frmInvCounting::ReadStoredLines() {
  const Hourglass hourglass(shared_.services.screen);
  if (!ViewInvCounting(static_cast<std::int32_t>(CountingID()))) guard_.ReportGone();
}

/// Where every figure is current, the figures belong to the selected store, too.
void frmInvCounting::CheckMovedStock() {
  const StockCheck::Outcome outcome = stockCheck_.Run(IsBeingEntered());
  if (outcome.isCurrent) storeOfFigures_.Follow();
  if (!outcome.sentence.empty()) CommandReported.Raise(outcome.sentence);
}

void frmInvCounting::SetBlind(bool blind) {
  mnuMovedStock.SetVisible(!blind);
  mnuAcceptEqual.SetVisible(!blind);
  mnuImport.SetVisible(!blind && shared_.services.tables != nullptr);
  finder_.OfferKinds(!blind);
  if (blind) history_.Clear();
}

void frmInvCounting::RefreshCommands() {
  koru::RefreshCommands(shared_.DocMode, *this);
  cmdReadLines.SetVisible(shared_.DocMode == DocumentMode::Viewing && !linesAreStored_);
  if (!IsBeingEntered()) cmdAddScanned.SetVisible(false);
  if (!IsBeingEntered()) history_.Clear();
  figuresAge_.Show(IsBeingEntered());
}

bool frmInvCounting::FillInvCountingData(std::int32_t id) {
  const auto header = ReadCountingHeader(id, shared_.data);
  if (header) ShowCountingHeader(*header, *this);
  return header.has_value();
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
  shared_.data.Release();
}

void frmInvCounting::ConnectEvents() {
  cmdNew.Click.Always([this] { Enter([this] { commands_.New(); }); });
  cmdEdit.Click.Always([this] { Enter([this] { commands_.Edit(); }); });
  cmdDelete.Click.Always([this] {
    const std::string id = lblIDVal.Caption();
    if (commands_.Delete()) CommandReported.Raise(DeletedSentence(id));
  });
  cmdDeleteAll.Click.Always([this] { commands_.DeleteAll(); });
  cmdCancel.Click.Always([this] { Cancel(); });
  cmdExit.Click.Always([this] { Exit(); });
  cmdSearch.Click.Always([this] { ShowInvSearch(); });
  cmdGoods.Click.Always([this] { AddSearchedGoods(); });
  cmdView.Click.Always([this] { viewReport_.Run(linesAreStored_ && !IsBeingEntered()); });
  cmdExcel.Click.Always([this] {
    const std::string file = excelExport_.Run(linesAreStored_);
    if (!file.empty()) CommandReported.Raise(WorkbookSentence(file));
  });
  mnuImport.SetVisible(shared_.services.tables != nullptr);
  mnuImport.Click.Always([this] {
    const std::string report = importCounts_.Run();
    if (!report.empty()) CommandReported.Raise(report);
  });
  cmdReadLines.Click.Always([this] { ReadStoredLines(); });
  cmdAddScanned.Click.Always([this] { AddScannedGood(); });
  flexDetail.RowsChanged.Always([this](const GridChange&) {
    if (!IsBeingEntered()) return;
    linesAreStored_ = false;
    entryIsWritten_ = false;
  });
  cmdInvExit.Click.Always([this] { linkedDocuments_.OpenDispatch(); });
  cmdInvReceipt.Click.Always([this] { linkedDocuments_.OpenReceipt(); });
  cmdCalc.Click.Always([this] {
    if (!quantity_.CalculateAllLines()) return;
    storeOfFigures_.Follow();
    figuresAge_.CalculatedAt(figuresAge_.Now());
    CommandReported.Raise(CalculatedSentence(*this));
  });
  cmdTmpSave.Click.Always([this] {
    Save(WantedSave::Temporary,
         [this] { return temporarySave_.Run() ? SavedSentence(*this) : std::string(); });
  });
  cmdIsFinalized.Click.Always([this] {
    Save(WantedSave::Final, [this] {
      const auto documents = finalRegistration_.Run();
      return documents ? RegisteredSentence(*this, *documents) : std::string();
    });
  });
  mnuRS.Click.Always([this] {
    const std::string code = txtCode.Text();
    if (returnToTemporary_.Run()) CommandReported.Raise(ReturnedSentence(code));
  });
  mnuMovedStock.Click.Always([this] { CheckMovedStock(); });
  cmdFunc.Click.Always([this] { mnuRS.Click.Raise(); });
  mnuUndo.Click.Always([this] { CommandReported.Raise(UndoneSentence(history_.Undo())); });
  mnuRedo.Click.Always([this] { CommandReported.Raise(RedoneSentence(history_.Redo())); });
  history_.Changed.Always([this] { ShowHistory(); });
  mnuAcceptEqual.Click.Always(
      [this] { CommandReported.Raise(AcceptedSentence(acceptedCounts_.Run(), finder_.IsOn())); });
  gmpInventory.SelectionChanged.Always([this] {
    storeChange_.Run();
    storeOfFigures_.StoreHasChanged();
  });
  gdpCreateDate.ValueChanged.Always([this] {
    if (gdpCreateDate.IsEmpty()) gdpCreateDate.SetValue(shared_.services.clock.Today());
  });
  guard_.StoredWanted.Always([this](std::int32_t id) { ViewInvCounting(id); });
  Timer1.Tick.Always([this] { Tick(); });
}

void frmInvCounting::ShowHistory() {
  mnuUndo.SetEnabled(history_.CanUndo());
  mnuRedo.SetEnabled(history_.CanRedo());
}

void frmInvCounting::Tick() {
  RefreshCommands();
  drafts_.Tick();
  if (++idleTicks_ < kIdleTicks) return;
  idleTicks_ = 0;
  shared_.data.Idle();
}

void frmInvCounting::Cancel() {
  bool isKept = false;
  CancelWanted.Raise(isKept);
  if (!isKept) RunAndTick([this] { commands_.Cancel(); });
}

void frmInvCounting::Exit() {
  if (IsBeingEntered()) return Cancel();
  Unload();
}

bool frmInvCounting::IsBeingEntered() const {
  return shared_.DocMode == DocumentMode::Editing || shared_.DocMode == DocumentMode::New;
}

/// Asks before a document that is being entered is lost.
bool frmInvCounting::OpenFound(std::int32_t id) {
  if (IsBeingEntered()) Cancel();
  if (IsBeingEntered()) return false;
  const Hourglass hourglass(shared_.services.screen);
  return ViewInvCounting(id);
}

/// Runs a command that begins the entry of a document.
void frmInvCounting::Enter(const std::function<void()>& command) {
  const DocumentMode before = shared_.DocMode;
  command();
  if (shared_.DocMode == before) return;
  storeOfFigures_.StoreHasChanged();
  history_.Clear();
  entryIsWritten_ = linesAreStored_;
  if (shared_.DocMode == DocumentMode::New) figuresAge_.Forget();
  drafts_.Begin();
}

/// Runs a command that ends the entry of a document, then fires the timer at once: before the next tick, the
/// same command could be pressed again, and a second registration would take a second number.
void frmInvCounting::RunAndTick(const std::function<void()>& command) {
  idleTicks_ = 0;
  try {
    command();
  } catch (...) {
    drafts_.Hold();
    Timer1.Fire();
    throw;
  }
  Timer1.Fire();
}

/// A saved document has its save commands disabled; the keyboard focus moves to the likely next command,
/// never to one that writes. `command` returns the sentence about what it did; empty: nothing was written.
void frmInvCounting::Save(WantedSave wanted, const std::function<std::string()>& command) {
  if (!storeOfFigures_.MayBeStored()) return;
  bool isKept = false;
  SaveWanted.Raise(wanted, isKept);
  if (isKept) return;
  drafts_.WriteIfPossible();
  std::string report;
  RunAndTick([&] {
    report = command();
    entryIsWritten_ = !report.empty();
    if (shared_.DocMode != DocumentMode::Viewing) return;
    linesAreStored_ = true;
    flexDetail.KeepOrder();
  });
  if (shared_.DocMode == DocumentMode::Viewing) SetFocus(IsFinal() ? cmdView : cmdEdit);
  if (!report.empty()) CommandReported.Raise(report);
}

void frmInvCounting::ReadPreferences() {
  const PropertyBag* const preferences = shared_.services.preferences;
  if (preferences == nullptr) return;
  try {
    enterGoesDown_ = std::get<bool>(preferences->Read(kEnterGoesDown, false));
  } catch (const InputError&) {
    enterGoesDown_ = false;  // a setting that cannot be read keeps nobody from counting
  }
}

void frmInvCounting::SetEnterGoesDown(bool down) {
  enterGoesDown_ = down;
  if (shared_.services.preferences != nullptr)
    shared_.services.preferences->Write(kEnterGoesDown, down, false);
}

}  // namespace koru
