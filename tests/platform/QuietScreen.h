#pragma once

#include "platform/Form.h"
#include "platform/Screen.h"

namespace koru {

/// A screen that shows nothing and keeps the pointer.
class QuietScreen : public Screen {
 public:
  void SetPointer(Pointer pointer) override { pointer_ = pointer; }
  [[nodiscard]] Pointer CurrentPointer() const override { return pointer_; }
  void Show(Form& /*form*/, bool /*modal*/) override { ++shown; }

  int shown = 0;

 private:
  Pointer pointer_ = Pointer::Normal;
};

}  // namespace koru
