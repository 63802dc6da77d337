#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/ports/Screen.h"

namespace koru::test {

/// A screen without a user, unless OnModal plays one.
class FakeScreen : public Screen {
 public:
  struct Showing {
    std::string form;  ///< the form's name
    bool modal = false;
  };

  void SetCursor(Cursor cursor) override;
  [[nodiscard]] Cursor CurrentCursor() const override { return cursor_; }
  /// A form that is still visible when OnModal returns is closed by its frame, and hidden when that does not
  /// help.
  void Show(Form& form, bool modal) override;

  /// Called while a form is shown modally.
  std::function<void(Form&)> OnModal;

  /// What was shown, in order.
  [[nodiscard]] const std::vector<Showing>& Shown() const { return shown_; }
  /// Every pointer that was set, in order.
  [[nodiscard]] const std::vector<Cursor>& Cursors() const { return cursors_; }

 private:
  Cursor cursor_ = Cursor::Normal;
  std::vector<Showing> shown_;
  std::vector<Cursor> cursors_;
};

}  // namespace koru::test
