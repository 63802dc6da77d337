#pragma once

namespace koru {

class Form;

enum class Pointer { Normal, Hourglass };

/// Where forms are put before a person: the desktop, or a story that plays a person.
class Screen {
 public:
  virtual ~Screen() = default;

  virtual void SetPointer(Pointer pointer) = 0;
  [[nodiscard]] virtual Pointer CurrentPointer() const = 0;

  /// Shows `form`, whose Visible() is already true. Modeless: returns at once; a form that is shown already
  /// comes to the front. Modal: no other form can be used meanwhile, and the call returns when the form is no
  /// longer visible.
  virtual void Show(Form& form, bool modal) = 0;
};

/// The hourglass for as long as it lives; then the pointer that was there before.
class Hourglass {
 public:
  explicit Hourglass(Screen& screen) : screen_(screen), before_(screen.CurrentPointer()) {
    screen_.SetPointer(Pointer::Hourglass);
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { screen_.SetPointer(before_); }

 private:
  Screen& screen_;
  Pointer before_;
};

}  // namespace koru
