#pragma once

#include <functional>
#include <memory>
#include <vector>

class QObject;
class QThread;

namespace koru {

/// Runs what waits for a server on threads of its own, so that windows keep responding. Used from the
/// application's thread.
class BackgroundWork {
 public:
  BackgroundWork();
  BackgroundWork(const BackgroundWork&) = delete;
  BackgroundWork& operator=(const BackgroundWork&) = delete;
  /// Waits for what still runs.
  ~BackgroundWork();

  /// Runs `work`, which must not throw, and then `done` on the thread of `receiver`, unless the receiver has
  /// been destroyed meanwhile.
  void Run(std::function<void()> work, QObject& receiver, std::function<void()> done);

 private:
  std::vector<std::unique_ptr<QThread>> threads_;
};

}  // namespace koru
