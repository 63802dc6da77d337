#pragma once

#include <functional>
#include <string>

#include "platform/controls/Event.h"

namespace koru {

class Form;

/// A key that a person presses: the virtual key code (F1 is 112, Delete 46, "S" 83) and which of Shift (1),
/// Ctrl (2) and Alt (4) are held, added up.
struct KeyPress {
  int key = 0;
  int shift = 0;
};

/// The state of one control of a form. A control is no toolkit's widget: a window draws it and tells it what
/// the person does, through the operations whose names begin with `User`. Those obey the control's state (a
/// person cannot press an unavailable button), answer whether they could be done, and raise the control's
/// events. All other operations are the program's: they are always obeyed and raise no event but `Changed`.
class Control {
 public:
  /// `form` must outlive the control; it lists its controls in the order in which they were made.
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Form& Parent() const { return form_; }

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// The person presses a key while the control has the keyboard; the form sees the key first.
  bool UserKey(KeyPress press);
  /// The person presses the right mouse button on the control.
  bool UserRightClick();

  /// Something that a window shows has changed, whoever changed it.
  Event<> Changed;
  Event<> GotFocus;
  Event<> LostFocus;
  Event<KeyPress> KeyDown;
  Event<> RightClick;

 protected:
  /// Runs the events of a person's action under the form's care (Form::RunEvent).
  void RunEvent(const std::function<void()>& event) const;
  /// Whether a person can reach the control at all.
  [[nodiscard]] bool Reachable() const { return enabled_ && visible_; }

 private:
  Form& form_;
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace koru
