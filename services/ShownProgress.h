#pragma once

#include "platform/controls/ProgressBar.h"

namespace koru {

/// Shows a progress bar of `steps` steps during the object's lifetime.
class ShownProgress {
 public:
  ShownProgress(ProgressBar& bar, int steps) : bar_(bar) {
    bar_.SetMax(steps);
    bar_.SetValue(0);
    bar_.SetVisible(true);
  }
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;
  ~ShownProgress() { bar_.SetVisible(false); }

  void Step() { bar_.SetValue(bar_.Value() + 1); }

 private:
  ProgressBar& bar_;
};

}  // namespace koru
