#include "draft/DraftKeeper.h"

#include <chrono>
#include <exception>
#include <initializer_list>
#include <utility>

#include "counting/controls/DocumentModes.h"
#include "draft/CountingDraft.h"
#include "draft/LeftDraft.h"
#include "platform/sql/ConnectionText.h"

namespace koru {
namespace {

bool IsEntry(DocumentMode mode) { return mode == DocumentMode::New || mode == DocumentMode::Editing; }

}  // namespace

DraftOwner OwnerOfDrafts(const std::string& connection, std::int32_t userID) {
  return {ConnectionText::Parse(connection).WithoutPassword(), userID};
}

DraftKeeper::DraftKeeper(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                         StoredCountingGuard& guard)
    : controls_(controls), shared_(shared), lines_(lines), guard_(guard) {
  if (shared_.services.drafts == nullptr) return;
  const auto changed = [this] { Changed(); };
  const std::initializer_list<Control*> header = {
      &controls.txtGNO,      &controls.txtNotes,    &controls.gmpInventory, &controls.gdpReceiveDate,
      &controls.gdpFromDate, &controls.gdpToDate,   &controls.mptCounter1,  &controls.mptCounter2,
      &controls.mptCounter3, &controls.mptConfirmer};
  for (Control* const control : header) subscriptions_.push_back(control->StateChanged.Subscribe(changed));
  subscriptions_.push_back(
      controls.flexDetail.RowsChanged.Subscribe([this](const GridChange& /*change*/) { Changed(); }));
}

DraftKeeper::~DraftKeeper() { Wait(); }

void DraftKeeper::Changed() {
  changed_ = true;
  quietTicks_ = 0;
}

void DraftKeeper::Begin() {
  Wait();
  // An entry that failed to be stored may be continued; another one does not take its draft.
  if (held_ && heldKey_ != controls_.lblIDVal.Caption()) draft_.reset();
  held_ = false;
  changed_ = false;
  waitingTicks_ = 0;
}

void DraftKeeper::Tick() {
  if (!IsEntry(shared_.DocMode)) {
    if (!held_) Remove();
    return;
  }
  held_ = false;  // the entry continues: its end removes the draft
  if (IsWriting()) return;
  Try(&DraftKeeper::EndWrite);
  if (!changed_ || shared_.services.drafts == nullptr) return;
  ++quietTicks_;
  if (++waitingTicks_ < kMaxTicksUnwritten && quietTicks_ < kPauseTicks) return;
  waitingTicks_ = 0;
  Try(&DraftKeeper::BeginWrite);
  if (!IsWriting()) Try(&DraftKeeper::EndWrite);
}

/// The user knows of a failure until a write has succeeded.
void DraftKeeper::Try(void (DraftKeeper::*part)()) {
  try {
    (this->*part)();
  } catch (...) {
    if (!std::exchange(failed_, true)) throw;
  }
}

void DraftKeeper::WriteIfPossible() noexcept {
  Wait();
  if (!changed_ || shared_.services.drafts == nullptr || !IsEntry(shared_.DocMode)) return;
  try {
    BeginWrite();
  } catch (const std::exception&) {
    return;
  }
  Wait();
}

void DraftKeeper::BeginWrite() {
  const DraftOwner owner = OwnerOfDrafts(shared_.data.ConnectionString(), shared_.user.userID);
  if (!draft_) draft_ = shared_.services.drafts->Begin(owner);
  std::packaged_task<void()> write(
      [&draft = *draft_, text = EncodeDraft(controls_, owner, shared_.DocMode, guard_.Stored())] {
        draft.Write(text);
      });
  underWay_ = write.get_future();
  changed_ = false;
  waitingTicks_ = 0;
  if (shared_.services.runDraftWrite) {
    shared_.services.runDraftWrite(std::move(write));
  } else {
    write();
  }
}

bool DraftKeeper::IsWriting() const {
  return underWay_.valid() && underWay_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

/// Waits for the write that is under way, and throws what it has thrown: it is to be tried again.
void DraftKeeper::EndWrite() {
  if (!underWay_.valid()) return;
  try {
    underWay_.get();
    failed_ = false;
  } catch (...) {
    changed_ = true;
    throw;
  }
}

void DraftKeeper::Wait() noexcept {
  try {
    EndWrite();
  } catch (const std::exception&) {  // a later write reports it if it fails, too
  }
}

void DraftKeeper::Hold() {
  held_ = true;
  heldKey_ = controls_.lblIDVal.Caption();
}

void DraftKeeper::Remove() {
  Wait();
  changed_ = false;
  waitingTicks_ = 0;
  if (const auto draft = std::exchange(draft_, nullptr)) draft->Remove();
}

void DraftKeeper::Continue(LeftDraft& left) {
  const CountingDraft& draft = left.Contents();
  ShowDraft(draft, controls_, lines_);
  SetDocumentMode(draft.mode, controls_, shared_);
  guard_.Stored().Resume(draft.storedKey, draft.stored);
  Begin();
  draft_ = left.Take();
}

}  // namespace koru
