#include "floor/JournalKeeper.h"

#include <chrono>

#include "platform/text/Errors.h"

namespace koru {

JournalKeeper::~JournalKeeper() {
  if (underWay_.valid()) underWay_.wait();
}

bool JournalKeeper::Try(const std::function<void()>& write) {
  try {
    write();
    return true;
  } catch (const InputError& failure) {
    if (!std::exchange(failureIsKnown_, true)) Failed.Raise(failure.what());
    return false;
  }
}

/// The rest of the write of all that is not on the disk, after the one that is under way; an invalid one when
/// there is none. The lines are in the file at once, so that they outlive this program. A journal begins anew
/// with the lines that came later, in one step: its start has their figures as applied.
std::packaged_task<void()> JournalKeeper::NextWrite() {
  while (underWay_.valid()) static_cast<void>(EndCommit());
  isOnDisk_ = unsynced_.empty() && !beginsAnew_;
  if (isOnDisk_ || isGone_) return {};
  if (!beginsAnew_ && !Try([this] { journal_.Append(unsynced_); })) return {};
  written_ = unsynced_.size();
  std::packaged_task<void()> write(
      [&journal = journal_, begins = beginsAnew_, text = beginsAnew_ ? start_() + unsynced_ : std::string()] {
        if (begins) {
          journal.Begin(text);
        } else {
          journal.Sync();
        }
      });
  underWay_ = write.get_future();
  return write;
}

void JournalKeeper::BeginCommit() {
  if (IsCommitting()) return;
  std::packaged_task<void()> write = NextWrite();
  if (!write.valid()) return;
  if (runner_) {
    runner_(std::move(write));
  } else {
    write();
  }
  if (!IsCommitting()) static_cast<void>(EndCommit());
}

bool JournalKeeper::IsCommitting() const {
  return underWay_.valid() && underWay_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

bool JournalKeeper::EndCommit() {
  if (!underWay_.valid()) return isOnDisk_;
  isOnDisk_ = Try([this] {
    underWay_.get();
    unsynced_.erase(0, written_);
    beginsAnew_ = false;
    failureIsKnown_ = false;
  });
  return isOnDisk_;
}

bool JournalKeeper::Commit() {
  std::packaged_task<void()> write = NextWrite();
  if (write.valid()) write();
  return EndCommit();
}

void JournalKeeper::BeginAnew() {
  static_cast<void>(EndCommit());
  beginsAnew_ = true;
  isGone_ = false;
  unsynced_.clear();
  static_cast<void>(Commit());
}

bool JournalKeeper::SetAside() {
  static_cast<void>(EndCommit());
  if (!Try([this] { static_cast<void>(journal_.SetAside()); })) return false;
  beginsAnew_ = false;
  isGone_ = true;
  return true;
}

void JournalKeeper::Remove() {
  static_cast<void>(EndCommit());
  beginsAnew_ = false;
  unsynced_.clear();
  isGone_ = Try([this] { journal_.Remove(); });
}

}  // namespace koru
