#pragma once

#include <functional>
#include <string>

namespace koru::test {

/// Runs `work` in a process of its own, which is a copy of this one. No connection of this process may be
/// open. `work` is handed a function that reports a text to this process, at once and whole.
class Child {
 public:
  using Report = std::function<void(const std::string&)>;
  explicit Child(const std::function<void(const Report&)>& work);
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  /// Waits until it has ended. Answers all that it reported.
  std::string Wait();
  /// Whether it has ended, or will do nothing more; what it reported is still to be read.
  [[nodiscard]] bool HasEnded() const;
  /// After Wait: whether it was killed by SIGKILL, or ended as it should.
  [[nodiscard]] bool WasKilled() const;
  [[nodiscard]] bool EndedWell() const;

 private:
  int process_ = 0;
  int reports_ = -1;
  int status_ = 0;
};

/// Kills this process after that many nanoseconds, wherever it is then.
void KillAfter(long nanoseconds);

}  // namespace koru::test
