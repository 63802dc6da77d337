#pragma once

namespace koru {

class Form;

enum class Cursor { Normal, Hourglass };

/// Shows forms: on the desktop, or to a scenario that drives them.
class Screen {
 public:
  virtual ~Screen() = default;

  virtual void SetCursor(Cursor cursor) = 0;
  [[nodiscard]] virtual Cursor CurrentCursor() const = 0;

  /// Shows `form`, whose Visible() is already true. Modeless: returns at once; a form that is already shown
  /// is raised. Modal: blocks the other forms and returns when the form is no longer visible.
  virtual void Show(Form& form, bool modal) = 0;
};

/// RAII hourglass cursor: restores the previous cursor on destruction.
class Hourglass {
 public:
  explicit Hourglass(Screen& screen) : screen_(screen), before_(screen.CurrentCursor()) {
    screen_.SetCursor(Cursor::Hourglass);
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { screen_.SetCursor(before_); }

 private:
  Screen& screen_;
  Cursor before_;
};

}  // namespace koru
