#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "desktop/forms/FormWindow.h"
#include "platform/ports/Screen.h"

namespace koru {

/// Puts forms before a person as windows. A form's window is made when the form is first shown, by the
/// factory that is registered under the form's name, and goes when the form is unloaded.
class DesktopScreen : public Screen {
 public:
  using Factory = std::function<std::unique_ptr<FormWindow>(Form&)>;

  DesktopScreen() = default;
  DesktopScreen(const DesktopScreen&) = delete;
  DesktopScreen& operator=(const DesktopScreen&) = delete;
  ~DesktopScreen() override;

  void Register(std::string formName, Factory factory);
  /// The window of a form; nullptr until the form is shown for the first time.
  [[nodiscard]] FormWindow* WindowOf(const Form& form) const;

  void SetCursor(Cursor cursor) override;
  [[nodiscard]] Cursor CurrentCursor() const override { return cursor_; }
  /// Throws std::logic_error when no factory is registered for the form.
  void Show(Form& form, bool modal) override;

 private:
  struct Shown {
    std::unique_ptr<FormWindow> window;
    Subscription changed;
    Subscription unloaded;
  };

  FormWindow& MakeWindow(Form& form);
  void Unloaded(const Form& form);
  static void ShowModal(Form& form, FormWindow& window);

  std::map<std::string, Factory, std::less<>> factories_;
  std::map<const Form*, Shown> shown_;
  Cursor cursor_ = Cursor::Normal;
};

}  // namespace koru
