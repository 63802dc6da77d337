#pragma once

#include <string>
#include <utility>

#include "platform/controls/Form.h"

namespace koru {

/// A box that is checked or not.
class CheckBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed.Raise();
  }

  [[nodiscard]] bool Checked() const { return checked_; }
  void SetChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    Changed.Raise();
  }

  /// The person checks or unchecks the box; Click is raised when that changes something.
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
