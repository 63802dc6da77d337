#pragma once

#include "platform/controls/Form.h"
#include "platform/ports/Screen.h"

namespace koru {

/// A screen that shows nothing and keeps the cursor.
class QuietScreen : public Screen {
 public:
  void SetCursor(Cursor cursor) override { cursor_ = cursor; }
  [[nodiscard]] Cursor CurrentCursor() const override { return cursor_; }
  void Show(Form& /*form*/, bool /*modal*/) override { ++shown; }

  int shown = 0;

 private:
  Cursor cursor_ = Cursor::Normal;
};

}  // namespace koru
