#pragma once

#include <chrono>

#include "platform/ports/HostServices.h"

namespace koru::test {

/// A clock on which it is always the day that the test says, and the time passes as it says.
class FixedClock : public Clock {
 public:
  explicit FixedClock(Date today) : today_(today) {}
  [[nodiscard]] Date Today() const override { return today_; }
  void SetToday(Date today) { today_ = today; }
  [[nodiscard]] std::chrono::system_clock::time_point Now() const override { return now_; }
  void Pass(std::chrono::minutes minutes) { now_ += minutes; }

 private:
  Date today_;
  std::chrono::system_clock::time_point now_;
};

}  // namespace koru::test
