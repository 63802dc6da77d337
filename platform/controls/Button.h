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
    StateChanged.Raise();
  }

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
  std::string caption_;
  bool looksAvailable_ = true;
};

}  // namespace koru
