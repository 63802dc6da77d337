#pragma once

#include <functional>
#include <string>

#include "platform/controls/Event.h"

namespace koru {

class Form;

/// A key press: the virtual key code (F1 is 112, Delete 46, "S" 83) and the sum of the modifiers held: Shift
/// (1), Ctrl (2), Alt (4).
struct KeyPress {
  int key = 0;
  int shift = 0;
};

/// The state of one control of a form. A control is independent of any toolkit: a window draws it and passes
/// user input to the operations whose names begin with `User`. Those respect the control's state (a disabled
/// button cannot be pressed), return whether they were carried out, and raise the control's events. All other
/// operations are the program's: they always take effect and raise only the events that say what changed
/// (`StateChanged`, TextBox::SelectionChanged, Grid::RowsChanging, Grid::RowsChanged, Grid::CurrentChanged).
class Control {
 public:
  /// `form` must outlive the control; it lists its controls in the order of their construction.
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

  /// A sentence for the user about the state of the control: why a command is not available, or what is
  /// missing or wrong in a field. Empty: nothing to say. A window shows it with the control, and marks a
  /// field that has one.
  [[nodiscard]] const std::string& Remark() const { return remark_; }
  void SetRemark(std::string remark);

  /// The user presses a key while the control has the focus; the form receives the key first.
  bool UserKey(KeyPress press);
  /// The user presses the right mouse button on the control.
  bool UserRightClick();

  /// The enabled or visible state, the remark, or the control's own text or value is another, whether the
  /// program or the user changed it. A setter that changes nothing does not raise it.
  Event<> StateChanged;
  Event<> GotFocus;
  Event<> LostFocus;
  Event<KeyPress> KeyDown;
  Event<> RightClick;

 protected:
  /// Runs the events of a user action through Form::RunEvent.
  void RunEvent(const std::function<void()>& event) const;
  /// Whether user input can reach the control: it is enabled and visible.
  [[nodiscard]] bool Reachable() const { return enabled_ && visible_; }

 private:
  Form& form_;
  std::string name_;
  std::string remark_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace koru
