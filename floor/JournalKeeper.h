#pragma once

#include <cstddef>
#include <functional>
#include <future>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/Event.h"
#include "platform/ports/FloorJournal.h"

namespace koru {

/// Writes the journal of a session. What cannot be written is kept and tried again; the desk is informed
/// once. One write is under way at a time: whatever else concerns the journal waits for its end. A journal
/// that was set aside or removed is not written to, and comes to be again by BeginAnew alone.
class JournalKeeper {
 public:
  /// Runs a write once, in any thread. A write that is under way does not use the keeper, but the journal.
  using Runner = std::function<void(std::packaged_task<void()> write)>;

  /// `start` gives what the journal begins with at that moment. Everything must outlive the keeper.
  JournalKeeper(FloorJournal& journal, std::function<std::string()> start)
      : journal_(journal), start_(std::move(start)) {}
  JournalKeeper(const JournalKeeper&) = delete;
  JournalKeeper& operator=(const JournalKeeper&) = delete;
  /// Waits for the write that is under way.
  ~JournalKeeper();

  /// What runs the writes of BeginCommit; without one, they run at once.
  void SetRunner(Runner runner) { runner_ = std::move(runner); }

  /// Whole lines, to be written by the next commit.
  void Add(std::string_view lines) { unsynced_ += lines; }
  /// Appends to the journal what was added, and begins to put it on the disk. Does nothing while a write is
  /// under way.
  void BeginCommit();
  /// Whether a write is under way.
  [[nodiscard]] bool IsCommitting() const;
  /// Waits for the write that is under way. Whether all that had been added when the last commit began is on
  /// the disk; if not, the next commit tries all of it again.
  [[nodiscard]] bool EndCommit();
  /// Puts on the disk what was added, and waits for that. False when it failed.
  [[nodiscard]] bool Commit();
  /// Replaces the journal by its start, now or by a later commit; what was added is forgotten. The journal
  /// exists then.
  void BeginAnew();
  /// False when that failed: the journal is where it was. What was added and is not on the disk never will
  /// be.
  [[nodiscard]] bool SetAside();
  /// Nothing of the journal is needed any more, nor what was added.
  void Remove();

  /// Whether the last write has failed.
  [[nodiscard]] bool IsFailing() const { return failureIsKnown_; }

  /// The journal cannot be written; raised once until it can be again.
  Event<std::string> Failed;

 private:
  [[nodiscard]] std::packaged_task<void()> NextWrite();
  bool Try(const std::function<void()>& write);

  FloorJournal& journal_;
  std::function<std::string()> start_;
  Runner runner_;
  std::string unsynced_;        ///< lines that are not surely on the disk
  std::size_t written_ = 0;     ///< the size of those that the write has
  std::future<void> underWay_;  ///< of a write whose outcome has not been looked at
  bool isOnDisk_ = true;        ///< the outcome of the last commit
  bool beginsAnew_ = false;
  bool isGone_ = false;  ///< the journal was set aside or removed
  bool failureIsKnown_ = false;
};

}  // namespace koru
