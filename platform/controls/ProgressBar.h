#pragma once

#include "platform/controls/Control.h"

namespace koru {

/// The progress of a long operation: Value() of Max() steps. A Max() of 0 is an operation with nothing to do.
/// An operation may report every step: nothing else runs meanwhile but the press of a button that cancels it,
/// and windows are redrawn on a change, at a limited rate.
class ProgressBar : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Max() const { return max_; }
  [[nodiscard]] int Value() const { return value_; }
  void SetMax(int max) {
    max_ = max;
    StateChanged.Raise();
  }
  void SetValue(int value) {
    value_ = value;
    StateChanged.Raise();
  }

 private:
  int max_ = 0;
  int value_ = 0;
};

}  // namespace koru
