#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/Event.h"

namespace koru {

class Screen;

/// A form: its title, its controls, its focus, and whether it is on the screen. A window displays a form.
class Form {
 public:
  /// `screen` must outlive the form.
  Form(Screen& screen, std::string name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  /// The controls in the order of their construction.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The control with that name, compared case-insensitively as in the rest of the suite; nullptr if none has
  /// it.
  [[nodiscard]] Control* Find(std::string_view name) const;

  /// The control with the focus; nullptr if none has had it yet.
  [[nodiscard]] Control* Focus() const { return focus_; }
  /// Moves the focus to a control, for the program or for the user: raises LostFocus on the previous control,
  /// then GotFocus on the new one, then FocusChanged. Returns false and changes nothing if the control is
  /// disabled or hidden.
  bool SetFocus(Control& control);

  [[nodiscard]] bool Visible() const { return visible_; }
  [[nodiscard]] bool Loaded() const { return loaded_; }
  /// Shows the form on the screen and activates it. A modal show returns when the form is hidden or unloaded.
  void Show(bool modal);
  /// Removes the form from the screen and keeps its contents.
  void Hide();
  /// Hides the form for good and runs OnUnload; the form must not be shown again. A second call does nothing.
  void Unload();

  /// The user closes the window by its frame. By default the form hides.
  virtual void UserClose() { Hide(); }
  /// The form has become the active one.
  virtual void Activate() {}

  /// Runs the handlers of a user action. If `OnFailure` is set, it receives what they throw, so that the form
  /// stays usable, and the cursor is restored; otherwise the exception reaches the caller.
  void RunEvent(const std::function<void()>& event);
  /// Shows the user what failed in an event; set by the owner of the form.
  std::function<void(const std::exception&)> OnFailure;

  Event<> StateChanged;  ///< the title or the visibility is another
  Event<> FocusChanged;  ///< Focus() is another
  Event<KeyPress> KeyDown;
  Event<> Unloaded;  ///< a window must release the form now

 protected:
  virtual void OnUnload() {}
  [[nodiscard]] Screen& TheScreen() const { return screen_; }

 private:
  friend class Control;
  void Register(Control& control) { controls_.push_back(&control); }

  Screen& screen_;
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  bool visible_ = false;
  bool loaded_ = true;
};

}  // namespace koru
