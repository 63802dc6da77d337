#pragma once

#include "platform/controls/Control.h"

namespace koru {

/// A timer of a form: while it is enabled, the window (or a scenario) calls Fire at every interval.
class Timer : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int IntervalMs() const { return intervalMs_; }
  void SetIntervalMs(int interval) {
    intervalMs_ = interval;
    StateChanged.Raise();
  }

  void Fire() {
    if (!Enabled()) return;
    RunEvent([this] { Tick.Raise(); });
  }

  Event<> Tick;

 private:
  int intervalMs_ = 200;
};

}  // namespace koru
