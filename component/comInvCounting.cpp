#include "component/comInvCounting.h"

#include <utility>

#include "counting/controls/DocumentModes.h"
#include "platform/sql/DatabaseError.h"
#include "services/Permission.h"

namespace koru {

comInvCounting::comInvCounting(ControlHost& host, const HostServices& services)
    : host_(host), shared_(services) {
  InitProperties();
}

comInvCounting::~comInvCounting() {
  if (form_) form_->Unload();
}

frmInvCounting* comInvCounting::CountingForm() const {
  return form_ && form_->Loaded() ? form_.get() : nullptr;
}

/// Returns the form, started up, in the given mode and with the control's properties. A new form replaces one
/// that was unloaded, and one that was loaded from another database: its counting, default store and report
/// folder are not this database's.
frmInvCounting& comInvCounting::LoadForm(DocumentMode mode) {
  const bool sameConnection = shared_.data.ConnectionString() == oleConnectionString_;
  if (CountingForm() != nullptr && !sameConnection) form_->Unload();
  if (CountingForm() == nullptr) {
    auto form = std::make_unique<frmInvCounting>(shared_);
    if (form_ && sameConnection) form->TakeGoodSearchOf(*form_);
    form_ = std::move(form);
  }
  shared_.user = user_;
  shared_.data.SetConnectionString(oleConnectionString_);
  form_->Load();
  SetDocumentMode(mode, *form_, shared_);
  return *form_;
}

void comInvCounting::ConnectSelectors(frmInvCounting& form) {
  shared_.ConnectionString = oleConnectionString_;
  form.gmpInventory.SetConnectionString(oleConnectionString_);
  for (PersonSelector* person :
       {&form.mptCounter1, &form.mptCounter2, &form.mptCounter3, &form.mptConfirmer}) {
    person->SetConnectionString(oleConnectionString_);
  }
}

bool comInvCounting::ModalityParameter() {
  return shared_.data.rssqlCommon
             .Open(SqlText("Select * from tblPelinSystemParameters Where ID=123 and Value=1"))
             .RecordCount() > 0;
}

bool comInvCounting::View(std::int32_t id) {
  bool found = false;
  {
    const Hourglass hourglass(shared_.services.screen);
    found = LoadForm(DocumentMode::Viewing).ViewInvCounting(id);
  }
  if (!found) {
    shared_.messages.ShowMessage(sentences::kError, "شمارش بااين شماره موجود نميباشد.");
    return false;
  }
  ConnectSelectors(*form_);
  shared_.ShowAsModal = ModalityParameter();
  form_->Show(shared_.ShowAsModal);
  return true;
}

void comInvCounting::ClearShow() {
  {
    const Hourglass hourglass(shared_.services.screen);
    LoadForm(DocumentMode::Empty).Clear();
    form_->RefreshCommands();
  }
  ConnectSelectors(*form_);
  shared_.ShowAsModal = ModalityParameter();
  if (!CheckPermission(shared_, FormPermission::OpenForNew)) return;
  form_->Show(shared_.ShowAsModal);
}

std::optional<std::string> comInvCounting::FindDraft() {
  leftDraft_.reset();
  if (shared_.services.drafts == nullptr) return {};
  try {
    leftDraft_ = LeftDraft::Find(*shared_.services.drafts, OwnerOfDrafts(oleConnectionString_, user_.userID),
                                 shared_.messages);
  } catch (const DatabaseError&) {  // the connection text names no database
    return {};
  }
  return leftDraft_ ? std::optional(leftDraft_->Sentence()) : std::nullopt;
}

bool comInvCounting::RestoreDraft() {
  if (!leftDraft_) return false;
  {
    const Hourglass hourglass(shared_.services.screen);
    LoadForm(DocumentMode::Empty).Clear();
    form_->RefreshCommands();
  }
  ConnectSelectors(*form_);
  shared_.ShowAsModal = ModalityParameter();
  if (!form_->ContinueDraft(*leftDraft_)) return false;
  leftDraft_.reset();
  form_->Show(shared_.ShowAsModal);
  return true;
}

bool comInvCounting::DiscardDraft() {
  if (!leftDraft_) return false;
  const int answer = shared_.messages.AskQuestion(
      sentences::kWarning,
      "پيش\u200cنويس دور ريخته مي\u200cشود و ديگر بازنمي\u200cگردد. " + std::string(sentences::kAreYouSure));
  if (answer != kAnswerYes) return false;
  leftDraft_->Discard();
  leftDraft_.reset();
  return true;
}

void comInvCounting::Resize(int width, int height, Grid& flexTempDocs) {
  constexpr int kSmallestWidth = 4000;
  constexpr int kSmallestHeight = 2000;
  constexpr int kStretched = 7;
  constexpr int kMinWidth = 2800;
  if (width <= kSmallestWidth || height <= kSmallestHeight) return;
  int others = 0;
  for (int col = 0; col <= 8; ++col) others += col == kStretched ? 0 : flexTempDocs.ColWidth(col);
  const int left = width - others - 250;
  // Where the others leave 200 to 250 twips, the column would have no width and be hidden.
  flexTempDocs.SetColWidth(kStretched, left <= 0 ? kMinWidth : left);
}

}  // namespace koru
