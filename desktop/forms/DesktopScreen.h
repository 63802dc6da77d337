#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "desktop/forms/FormWindow.h"
#include "platform/ports/Screen.h"

namespace koru {

/// Shows forms as windows. The factory registered under the form's name creates the window when the form is
/// first shown; it is destroyed when the form is unloaded.
class DesktopScreen : public Screen {
 public:
  using Factory = std::function<std::unique_ptr<FormWindow>(Form&)>;

  DesktopScreen() = default;
  DesktopScreen(const DesktopScreen&) = delete;
  DesktopScreen& operator=(const DesktopScreen&) = delete;
  ~DesktopScreen() override;

  void Register(std::string formName, Factory factory);
  /// The window of a form; nullptr until the form is first shown.
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
