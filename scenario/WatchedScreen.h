#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/ports/Screen.h"

namespace koru {

/// Forwards to another screen and records which forms were shown, in which order and how.
class WatchedScreen : public Screen {
 public:
  /// `inner` must outlive it.
  explicit WatchedScreen(Screen& inner) : inner_(inner) {}

  void SetCursor(Cursor cursor) override { inner_.SetCursor(cursor); }
  [[nodiscard]] Cursor CurrentCursor() const override { return inner_.CurrentCursor(); }
  void Show(Form& form, bool modal) override;

  /// The visible form that was shown last; nullptr when none is visible.
  [[nodiscard]] Form* ActiveForm() const;
  /// A form that was shown and is still loaded, by its name regardless of case; nullptr when there is none.
  [[nodiscard]] Form* Find(std::string_view name) const;
  /// Whether the form was last shown modally.
  [[nodiscard]] bool IsModal(const Form& form) const;
  /// All shown forms that are still loaded, the one that was shown last first.
  [[nodiscard]] std::vector<Form*> Forms() const;

 private:
  struct Shown {
    Form* form = nullptr;
    bool modal = false;
    Subscription unloaded;
  };
  void Forget(const Form& form);

  Screen& inner_;
  std::vector<Shown> shown_;  ///< the one that was shown last at the end
};

}  // namespace koru
