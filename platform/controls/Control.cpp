#include "platform/controls/Control.h"

#include <utility>

#include "platform/controls/Form.h"

namespace koru {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) { form.Register(*this); }

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  StateChanged.Raise();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  StateChanged.Raise();
}

void Control::SetRemark(std::string remark) {
  if (remark_ == remark) return;
  remark_ = std::move(remark);
  StateChanged.Raise();
}

bool Control::UserKey(KeyPress press) {
  if (!Reachable()) return false;
  RunEvent([this, press] {
    form_.KeyDown.Raise(press);
    KeyDown.Raise(press);
  });
  return true;
}

bool Control::UserRightClick() {
  if (!Reachable()) return false;
  RunEvent([this] { RightClick.Raise(); });
  return true;
}

void Control::RunEvent(const std::function<void()>& event) const { form_.RunEvent(event); }

}  // namespace koru
