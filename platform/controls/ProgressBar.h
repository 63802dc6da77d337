#pragma once

#include "platform/controls/Control.h"

namespace koru {

/// How far a long operation has come: Value() of Max() steps. A Max() of 0 is an operation with nothing to
/// do. An operation may tell every step: since nothing else runs meanwhile, a change is what lets windows be
/// drawn, as often as the eye can follow.
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
