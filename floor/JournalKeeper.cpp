#include "floor/JournalKeeper.h"

#include "platform/text/Errors.h"

namespace koru {

bool JournalKeeper::Try(const std::function<void()>& write) {
  try {
    write();
    failureIsKnown_ = false;
    return true;
  } catch (const InputError& failure) {
    if (!std::exchange(failureIsKnown_, true)) Failed.Raise(failure.what());
    return false;
  }
}

bool JournalKeeper::Commit() {
  if (pending_.empty() && !beginsAnew_) return true;
  return Try([this] {
    if (beginsAnew_) {
      journal_.Begin(start_());
      beginsAnew_ = false;
    }
    if (pending_.empty()) return;
    journal_.Append(pending_);
    journal_.Sync();
    pending_.clear();
  });
}

void JournalKeeper::BeginAnew() {
  beginsAnew_ = true;
  pending_.clear();
  static_cast<void>(Commit());
}

bool JournalKeeper::SetAside() {
  return Try([this] { journal_.SetAside(); });
}

void JournalKeeper::Remove() {
  Try([this] { journal_.Remove(); });
}

}  // namespace koru
