#pragma once

#include "platform/controls/CaptionedControl.h"
#include "platform/controls/Form.h"

namespace koru {

/// A check box.
class CheckBox : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  [[nodiscard]] bool Checked() const { return checked_; }
  void SetChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    StateChanged.Raise();
  }

  /// The user checks or unchecks the box; raises Click if the value changes.
  bool UserCheck(bool checked) {
    if (!Reachable()) return false;
    RunEvent([&] {
      Parent().SetFocus(*this);
      if (checked_ == checked) return;
      SetChecked(checked);
      Click.Raise();
    });
    return true;
  }

  Event<> Click;

 private:
  bool checked_ = false;
};

}  // namespace koru
