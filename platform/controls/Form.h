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

/// A form: its title, its controls, its focus, and whether it stands on the screen. A window is a form's
/// picture.
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

  /// The controls in the order in which they were made.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, case-insensitive as the suite's names are; nullptr when there is none.
  [[nodiscard]] Control* Find(std::string_view name) const;

  /// The control that has the keyboard; nullptr when none was given it yet.
  [[nodiscard]] Control* Focus() const { return focus_; }
  /// Gives the keyboard to a control, for the program or for the person: the one that had it is told
  /// (LostFocus), then the new one (GotFocus). False, and nothing changes, when the control is not enabled
  /// and visible.
  bool SetFocus(Control& control);

  [[nodiscard]] bool Visible() const { return visible_; }
  [[nodiscard]] bool Loaded() const { return loaded_; }
  /// Puts the form on the screen and activates it. A modal show returns when the form has been hidden or
  /// unloaded.
  void Show(bool modal);
  /// Takes the form off the screen; what it holds stays.
  void Hide();
  /// Ends the form: it is hidden, OnUnload runs, and it must not be shown again. A second call does nothing.
  void Unload();

  /// The person closes the window by its frame. What that means is the form's: by default the form hides.
  virtual void UserClose() { Hide(); }
  /// The form has become the active one.
  virtual void Activate() {}

  /// Runs what a person's action sets off. What it throws goes to `OnFailure` where one is set, so that the
  /// form stays usable; the pointer is the normal one again afterwards.
  void RunEvent(const std::function<void()>& event);
  /// Tells the person what went wrong in an event; set by whoever makes the form.
  std::function<void(const std::exception&)> OnFailure;

  Event<> Changed;  ///< title, focus or visibility
  Event<KeyPress> KeyDown;
  Event<> Unloaded;  ///< a window must let go of the form now

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
