#pragma once

#include <functional>
#include <future>
#include <thread>

namespace koru {

/// A thread that waits for the disk in place of the one that hands tasks over, one task at a time: who hands
/// over the next one waits for the end of the one before. Destruction waits, too.
class WriterThread {
 public:
  /// Where the system has no thread to spare, the task runs at once.
  void Run(std::packaged_task<void()> task);
  /// The same, and `done` afterwards, in that thread.
  void Run(std::packaged_task<void()> task, std::function<void()> done);

 private:
  std::jthread thread_;
};

}  // namespace koru
