#pragma once

#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace koru {

/// A control with a caption that only the program changes.
class CaptionedControl : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    StateChanged.Raise();
  }

 private:
  std::string caption_;
};

}  // namespace koru
