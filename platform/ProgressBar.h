#pragma once

#include "platform/Control.h"

namespace koru {

/// How far a long operation has come: Value() of Max() steps. A Max() of 0 is an operation with nothing to
/// do. Windows repaint at once on a change, since nothing else runs meanwhile.
class ProgressBar : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Max() const { return max_; }
  [[nodiscard]] int Value() const { return value_; }
  void SetMax(int max) {
    max_ = max;
    Changed.Raise();
  }
  void SetValue(int value) {
    value_ = value;
    Changed.Raise();
  }

 private:
  int max_ = 0;
  int value_ = 0;
};

}  // namespace koru
