#pragma once

#include "platform/controls/CaptionedControl.h"

namespace koru {

/// A text that cannot be edited.
class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

}  // namespace koru
