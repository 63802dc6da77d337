#pragma once

#include "platform/controls/CaptionedControl.h"

namespace koru {

/// An entry of a form's menu.
class MenuItem : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  bool UserClick() {
    if (!Reachable()) return false;
    RunEvent([this] { Click.Raise(); });
    return true;
  }

  Event<> Click;
};

}  // namespace koru
