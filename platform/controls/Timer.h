#pragma once

#include "platform/controls/Control.h"

namespace koru {

/// A timer of a form: while it is enabled, the window (or a scenario) calls Fire at every interval.
class Timer : public Control {
 public:
  using Control::Control;

  [[nodiscard]] static constexpr int IntervalMs() { return 200; }

  void Fire() {
    if (!Enabled()) return;
    RunEvent([this] { Tick.Raise(); });
  }

  Event<> Tick;
};

}  // namespace koru
