#pragma once

#include "platform/ports/HostServices.h"

namespace koru::test {

/// A clock on which it is always the day that the test says.
class FixedClock : public Clock {
 public:
  explicit FixedClock(Date today) : today_(today) {}
  [[nodiscard]] Date Today() const override { return today_; }
  void SetToday(Date today) { today_ = today; }

 private:
  Date today_;
};

}  // namespace koru::test
