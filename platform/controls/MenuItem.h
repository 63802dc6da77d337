#pragma once

#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace koru {

/// An entry of a form's menu.
class MenuItem : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    caption_ = std::move(caption);
    StateChanged.Raise();
  }

  bool UserClick() {
    if (!Reachable()) return false;
    RunEvent([this] { Click.Raise(); });
    return true;
  }

  Event<> Click;

 private:
  std::string caption_;
};

}  // namespace koru
