#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/Event.h"
#include "platform/ports/FloorJournal.h"

namespace koru {

/// Writes the journal of a session. What cannot be written is kept and tried again; the desk is informed
/// once.
class JournalKeeper {
 public:
  /// `start` gives what the journal begins with at that moment. Everything must outlive the keeper.
  JournalKeeper(FloorJournal& journal, std::function<std::string()> start)
      : journal_(journal), start_(std::move(start)) {}
  JournalKeeper(const JournalKeeper&) = delete;
  JournalKeeper& operator=(const JournalKeeper&) = delete;
  ~JournalKeeper() = default;

  /// Whole lines, to be written by the next Commit.
  void Add(std::string_view lines) { pending_ += lines; }
  /// Puts on the disk what was added. False when that failed.
  [[nodiscard]] bool Commit();
  /// Replaces the journal by its start, now or by a later Commit; what was added is forgotten.
  void BeginAnew();
  /// False when that failed: the journal is where it was.
  [[nodiscard]] bool SetAside();
  void Remove();

  /// The journal cannot be written; raised once until it can be again.
  Event<std::string> Failed;

 private:
  bool Try(const std::function<void()>& write);

  FloorJournal& journal_;
  std::function<std::string()> start_;
  std::string pending_;
  bool beginsAnew_ = false;
  bool failureIsKnown_ = false;
};

}  // namespace koru
