#pragma once

namespace koru {

class Form;

enum class Cursor { Normal, Hourglass };

/// Where forms are put before a person: the desktop, or a scenario that plays a person.
class Screen {
 public:
  virtual ~Screen() = default;

  virtual void SetCursor(Cursor cursor) = 0;
  [[nodiscard]] virtual Cursor CurrentCursor() const = 0;

  /// Shows `form`, whose Visible() is already true. Modeless: returns at once; a form that is shown already
  /// comes to the front. Modal: no other form can be used meanwhile, and the call returns when the form is no
  /// longer visible.
  virtual void Show(Form& form, bool modal) = 0;
};

/// The hourglass for as long as it lives; then the pointer that was there before.
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
