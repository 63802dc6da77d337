#pragma once

#include <string>
#include <utility>

#include "platform/controls/Form.h"

namespace koru {

/// A command button.
class Button : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed.Raise();
  }

  /// Whether the button is drawn as one that can be pressed. A form's timer lets it follow Enabled().
  [[nodiscard]] bool LooksAvailable() const { return looksAvailable_; }
  void SetLooksAvailable(bool looks) {
    if (looksAvailable_ == looks) return;
    looksAvailable_ = looks;
    Changed.Raise();
  }

  /// The person presses the button; refused while it is not reachable. The button takes the keyboard first.
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
  std::string caption_;
  bool looksAvailable_ = true;
};

}  // namespace koru
