#pragma once

#include "platform/controls/CaptionedControl.h"
#include "platform/controls/Form.h"

namespace koru {

/// A command button.
class Button : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  /// Whether the button is drawn as available. A form's timer makes it follow Enabled().
  [[nodiscard]] bool LooksAvailable() const { return looksAvailable_; }
  void SetLooksAvailable(bool looks) {
    if (looksAvailable_ == looks) return;
    looksAvailable_ = looks;
    StateChanged.Raise();
  }

  /// The user presses the button, which takes the focus first; refused while it is disabled or hidden.
  bool UserClick() {
    if (!Reachable()) return false;
    RunEvent([this] {
      Parent().SetFocus(*this);
      Click.Raise();
    });
    return true;
  }

  Event<> Click;

 private:
  bool looksAvailable_ = true;
};

}  // namespace koru
