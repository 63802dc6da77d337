#include "platform/controls/Form.h"

#include <algorithm>
#include <utility>

#include "platform/ports/Screen.h"
#include "platform/text/Text.h"

namespace koru {

Form::Form(Screen& screen, std::string name) : screen_(screen), name_(std::move(name)) {}

Form::~Form() = default;

void Form::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  StateChanged.Raise();
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return EqualsNoCase(control->Name(), name);
  });
  return found == controls_.end() ? nullptr : *found;
}

bool Form::SetFocus(Control& control) {
  if (!control.Enabled() || !control.Visible()) return false;
  if (focus_ == &control) return true;
  Control* const before = std::exchange(focus_, &control);
  if (before != nullptr) before->LostFocus.Raise();
  control.GotFocus.Raise();
  FocusChanged.Raise();
  return true;
}

void Form::Show(bool modal) {
  if (!visible_) {
    visible_ = true;
    StateChanged.Raise();
  }
  Activate();
  screen_.Show(*this, modal);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  StateChanged.Raise();
}

void Form::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  Hide();
  OnUnload();
  Unloaded.Raise();
}

void Form::RunEvent(const std::function<void()>& event) {
  if (!OnFailure) {
    event();
    return;
  }
  const Cursor before = screen_.CurrentCursor();
  try {
    event();
  } catch (const std::exception& failure) {
    screen_.SetCursor(before);
    OnFailure(failure);
  }
}

}  // namespace koru
