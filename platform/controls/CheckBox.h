#pragma once

#include <string>
#include <utility>

#include "platform/controls/Form.h"

namespace koru {

/// A check box.
class CheckBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    StateChanged.Raise();
  }

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
  std::string caption_;
  bool checked_ = false;
};

}  // namespace koru
