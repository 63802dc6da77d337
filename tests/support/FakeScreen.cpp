#include "tests/support/FakeScreen.h"

namespace koru::test {

void FakeScreen::SetPointer(Pointer pointer) {
  pointer_ = pointer;
  pointers_.push_back(pointer);
}

void FakeScreen::Show(Form& form, bool modal) {
  shown_.push_back({form.Name(), modal});
  if (!modal) return;
  if (OnModal) OnModal(form);
  if (form.Visible()) form.UserClose();
  if (form.Visible()) form.Hide();
}

}  // namespace koru::test
