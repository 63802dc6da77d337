#pragma once

#include <future>
#include <memory>
#include <string>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "platform/ports/DraftStore.h"
#include "registration/StoredCountingGuard.h"
#include "services/SharedState.h"

namespace koru {

class LeftDraft;

/// The owner of the drafts of what this user enters over this connection. Throws DatabaseError when the
/// connection text cannot be parsed.
[[nodiscard]] DraftOwner OwnerOfDrafts(const std::string& connection, std::int32_t userID);

/// Keeps a draft of the counting that is being entered, where the host has a store of drafts: after each
/// pause of the user, and every few seconds while there is none. Time is counted in ticks of the form's
/// timer. One write is under way at a time, where the host runs it. When the entry has ended, because it was
/// saved or given up, the draft is removed; a form that is destroyed before leaves it.
class DraftKeeper {
 public:
  static constexpr int kPauseTicks = 5;  ///< a second without a change
  /// Five seconds since the first change that is not in the draft.
  static constexpr int kMaxTicksUnwritten = 25;

  /// All must outlive the keeper.
  DraftKeeper(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
              StoredCountingGuard& guard);
  DraftKeeper(const DraftKeeper&) = delete;
  DraftKeeper& operator=(const DraftKeeper&) = delete;
  /// Waits for the write that is under way.
  ~DraftKeeper();

  /// An entry begins: what is on the form is not worth a draft before the user changes it.
  void Begin();
  /// The form's timer ticks. Throws InputError the first time that a draft cannot be written, when the write
  /// has ended.
  void Tick();
  /// Writes what the draft does not hold yet, and waits for that; a draft that cannot be written is no reason
  /// not to save.
  void WriteIfPossible() noexcept;
  /// A command has failed: the draft stays even if the entry has ended, since nobody knows what was stored.
  void Hold();
  /// Shows a draft on the form, whose mode becomes the draft's, and continues to keep it.
  void Continue(LeftDraft& left);

 private:
  void Changed();
  void Try(void (DraftKeeper::*part)());
  void BeginWrite();
  [[nodiscard]] bool IsWriting() const;
  void EndWrite();
  void Wait() noexcept;
  void Remove();

  InvCountingControls& controls_;
  SharedState& shared_;
  CountingLines& lines_;
  StoredCountingGuard& guard_;
  std::unique_ptr<Draft> draft_;  ///< nothing before the first write
  std::future<void> underWay_;    ///< of a write of the draft whose outcome has not been looked at
  bool changed_ = false;          ///< since the draft was written
  int quietTicks_ = 0;            ///< since the last change
  int waitingTicks_ = 0;          ///< since the first change that is not in the draft
  bool failed_ = false;           ///< the last write failed, and the user knows
  bool held_ = false;
  std::string heldKey_;  ///< the key of the counting on the form when the draft was held
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
