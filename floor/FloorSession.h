#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "floor/AccessCodes.h"
#include "floor/FloorFigures.h"
#include "floor/FloorLines.h"
#include "floor/FloorMembers.h"
#include "floor/FloorReplay.h"
#include "floor/JournalDamage.h"
#include "floor/JournalKeeper.h"
#include "platform/ports/FloorJournal.h"
#include "services/SharedState.h"

namespace koru {

/// What a session needs beside the form.
struct FloorSurroundings {
  FloorJournal& journal;  ///< of the counting on the form
  /// Whether the database has all that was entered (frmInvCounting::EntryIsWritten).
  std::function<bool()> entryIsWritten;
  RandomBits random = SystemRandomBits();
  std::function<std::chrono::sys_seconds()> now = [] {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  };
};

/// Counting on the floor: the figures of the three counts, entered on devices between the shelves, reach the
/// counting that is being edited at the desk. Each count has a code of its own and its devices see its own
/// figures alone. A figure is applied once, however often it is sent, by the form's own acceptance, without a
/// trace in what the desk is doing. It is acknowledged after it is in the journal on the disk, so that the
/// next session of the counting has it even if this program ends now.
///
/// The session is open while its counting is being edited, paused while that is only viewed (a temporary
/// save pauses it, Edit resumes it with the same codes), and has ended after a registration, Cancel, another
/// counting or the end of the form.
class FloorSession {
 public:
  enum class End {
    None,           ///< the session has not ended
    Registered,     ///< the journal is removed but for the numbers of applied figures
    Cancelled,      ///< the entry was not written, or the stored lines were read: the journal is set aside
    OtherCounting,  ///< the form shows another counting or none
    Unloaded,       ///< the form is closed; a journal with figures that no save holds remains
    Stopped         ///< by the desk; the journal is kept until the entry has ended
  };

  static constexpr std::size_t kMaxNameLength = 60;  ///< of a device, in UTF-16 units

  /// Whether a session can begin: a stored counting is being edited. A new one has no lines in the database
  /// that its figures could be replayed into.
  [[nodiscard]] static bool MayBegin(const InvCountingControls& controls, const SharedState& shared) {
    return shared.DocMode == DocumentMode::Editing && controls.CountingID() > 0;
  }

  /// Begins a session, or continues the one of the journal with its codes, devices and answers. Everything
  /// must outlive the session, except that the form may be unloaded before. Throws InputError when MayBegin
  /// is false or the journal cannot be read or written. A journal that is damaged is set aside, and what can
  /// be read of it is used; TakeDamage says so.
  FloorSession(InvCountingControls& controls, const SharedState& shared, FloorSurroundings surroundings);
  FloorSession(const FloorSession&) = delete;
  FloorSession& operator=(const FloorSession&) = delete;
  ~FloorSession();

  // The state.

  /// Whether figures are taken now.
  [[nodiscard]] bool IsOpen();
  [[nodiscard]] End Ended() const { return end_; }
  /// Whether the journal has figures of devices that no save holds.
  [[nodiscard]] bool HasUnsaved() const { return hasUnsaved_; }
  /// Whether a command works: nothing may be read from devices meanwhile, since windows serve sockets when
  /// they draw its progress.
  [[nodiscard]] bool IsCommandAtWork() const;
  /// The desk stops the session: all codes are void until it is opened again.
  void Stop();
  /// The desk opens the session that it has stopped again: the codes, the keys of the lines and the answers
  /// are those of before. False when the entry has ended since; a new session begins with the next Edit.
  bool Reopen();

  // The codes.

  [[nodiscard]] const std::string& Code(int count) const { return codes_.Of(count); }
  /// Gives a count another code; devices with the old one are out.
  void RenewCode(int count);
  /// The count that a code admits to; nothing when it is unknown or the session has ended.
  [[nodiscard]] std::optional<int> CountOf(std::string_view code);

  // What devices do. `device` is the id that the device has given itself, 1 to 64 characters of base64url
  // (IsDeviceID), and a count is 1 to 3; otherwise std::invalid_argument is thrown.

  [[nodiscard]] static bool IsDeviceID(std::string_view text);
  /// The device gives its name; at most kMaxNameLength of it is kept.
  void Hello(int count, const std::string& device, std::string_view name);
  /// Decides figures in their order. The answers must not be sent before a commit that began later is on the
  /// disk.
  [[nodiscard]] std::vector<FloorAnswer> Enter(int count, const std::string& device,
                                               std::span<const FloorFigure> figures);
  /// Notes a scanned barcode that no line has; once for each count.
  void NoteUnknown(int count, const std::string& device, const std::string& barcode);
  /// Puts on the disk what was decided since the last time, for all requests at once, and waits for that.
  /// False when it failed: nothing of it may be acknowledged, and the next commit tries all of it again.
  [[nodiscard]] bool Commit() { return keeper_.Commit(); }
  /// What runs the writes of BeginCommit from now on, one at a time; empty: they run at once. A write must
  /// have ended before the session's journal is destroyed.
  void SetJournalRunner(JournalKeeper::Runner runner) { keeper_.SetRunner(std::move(runner)); }
  /// Commit without the wait. Does nothing while a write is under way: call it again when that has ended.
  void BeginCommit() { keeper_.BeginCommit(); }
  [[nodiscard]] bool IsCommitting() const { return keeper_.IsCommitting(); }
  /// Waits for the write that is under way. False when the last commit failed.
  [[nodiscard]] bool EndCommit() { return keeper_.EndCommit(); }
  /// Whether the journal could not be written the last time.
  [[nodiscard]] bool JournalIsFailing() const { return keeper_.IsFailing(); }
  /// The lines as the devices of that count see them, in an order that the desk's sorting does not change.
  [[nodiscard]] std::vector<FloorLine> Lines(int count);
  /// What has changed for them since a revision; 0 asks for everything.
  [[nodiscard]] FloorChanges ChangesSince(std::int64_t revision, int count);

  // What the desk sees.

  /// What was wrong with the journal that the session has found, for the desk to show; nothing after the
  /// first call.
  [[nodiscard]] std::optional<JournalDamage> TakeDamage() { return std::exchange(damage_, std::nullopt); }

  [[nodiscard]] std::vector<FloorDevice> Devices() const { return members_.Devices(); }
  /// FloorDevice::ShownName of the device of that count with that id, of which nothing need have been heard.
  [[nodiscard]] std::string ShownName(int count, const std::string& id) const {
    return members_.ShownName(count, id);
  }
  /// In the order of their first scan, without those that have a line by now.
  [[nodiscard]] std::vector<UnknownBarcode> Unknown();

  /// The figures of the journal that the counting lacks, since the program ended before a save. While there
  /// are some, the session is paused until the desk has decided.
  [[nodiscard]] const LeftFigures& Left() const { return left_; }
  /// Whether a save or a registration would set them aside; those that were taken back are already, and those
  /// that an earlier save has left out.
  [[nodiscard]] bool SaveSetsLeftAside() const { return !leftIsAside_ && !left_.Cells().empty(); }
  /// Enters them as devices do. Cells in which the desk has entered something else since keep it. Does
  /// nothing unless the counting is being edited.
  ReplayedFigures Replay();
  /// The desk does without them; the journal is set aside, the codes hold. False when that fails: they are
  /// still left.
  bool ForgoLeft();
  /// Makes the figures of a journal that was set aside the left ones: of the last one with figures that the
  /// counting lacks and that could be entered, or else with any that it lacks. Returns whether there is one.
  bool TakeBackSetAside();

  /// Something may have changed for devices: ask ChangesSince. Listeners must not enter figures.
  Event<> Changed;
  Event<const FloorArrival&> Arrived;
  /// A figure of the device with that name has been decided; raised once for each, whatever became of it.
  Event<const JournalFigure&, const std::string&> Decided;
  /// The journal cannot be written; raised once until it can be again.
  Event<std::string> JournalFailed;

 private:
  struct Entered {
    bool stored = false;
    std::string message;
  };

  void Continue(JournalContents contents);
  [[nodiscard]] std::vector<JournalFigure> TakeFromSetAside();
  void BeginJournal(std::vector<JournalFigure> earlier);
  void ContinueLines(const JournalContents& earlier);
  void RemoveJournal();
  void ReadLeft(std::string_view text);
  [[nodiscard]] std::string SetTextAside(std::string_view text);
  [[nodiscard]] bool SetDamagedAside(std::string_view text, const JournalContents& contents);
  [[nodiscard]] bool IsEdited() const;
  void Follow(bool settled);
  void Finish(End end);
  /// Whether the session has ended and its journal is settled.
  [[nodiscard]] bool IsFinished() const { return subscriptions_.empty(); }
  void Flush();
  void SettleJournal(End end);
  bool LeaveOutLeft();
  void ForgetLeft(const LeftFigures& left, std::vector<JournalFigure>& journal);
  bool SetLeftAside();
  void Take(const std::vector<JournalFigure>& figures);
  [[nodiscard]] JournalStart StartNow();
  FloorMembers::Member& MemberInContact(int count, const std::string& device);
  FloorAnswer Decide(FloorMembers::Member& member, const FloorFigure& figure);
  FloorAnswer Apply(FloorMembers::Member& member, const FloorFigure& figure, int row,
                    const std::string& before);
  void NoteDesk(const LineKey& line, int count, const std::string& before, const std::string& text);
  Entered EnterCell(int row, int count, const std::string& text, const std::string& device);

  InvCountingControls& controls_;
  const SharedState& shared_;
  FloorSurroundings around_;
  std::int32_t countingID_;
  AccessCodes codes_;
  FloorLines lines_;
  JournalKeeper keeper_;
  FloorMembers members_;
  std::vector<UnknownBarcode> unknown_;
  LeftFigures left_;
  std::vector<JournalFigure> leftJournal_;  ///< the figures that left_ comes from, and the desk's since
  bool leftIsAside_ = false;                ///< that is, of a journal which was set aside
  bool holdsLeft_ = false;                  ///< the journal has left figures that are not in the counting
  JournalStart leftStart_;                  ///< what the journal began with
  std::optional<JournalDamage> damage_;
  End end_ = End::None;
  bool wasEdited_ = true;    ///< the counting was being edited when it was looked at last
  bool isEntering_ = false;  ///< a figure of the floor is being entered
  bool hasUnsaved_ = false;  ///< the journal has figures that no save holds
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
