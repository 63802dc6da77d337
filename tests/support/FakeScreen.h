#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Form.h"
#include "platform/Screen.h"

namespace koru::test {

/// A screen without a person, unless OnModal plays one.
class FakeScreen : public Screen {
 public:
  struct Showing {
    std::string form;  ///< the form's name
    bool modal = false;
  };

  void SetPointer(Pointer pointer) override;
  [[nodiscard]] Pointer CurrentPointer() const override { return pointer_; }
  /// A form that is still visible when OnModal returns is closed by its frame, and hidden when that does not
  /// help.
  void Show(Form& form, bool modal) override;

  /// Called while a form is shown modally.
  std::function<void(Form&)> OnModal;

  /// What was shown, in order.
  [[nodiscard]] const std::vector<Showing>& Shown() const { return shown_; }
  /// Every pointer that was set, in order.
  [[nodiscard]] const std::vector<Pointer>& Pointers() const { return pointers_; }

 private:
  Pointer pointer_ = Pointer::Normal;
  std::vector<Showing> shown_;
  std::vector<Pointer> pointers_;
};

}  // namespace koru::test
