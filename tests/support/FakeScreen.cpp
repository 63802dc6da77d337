#include "tests/support/FakeScreen.h"

namespace koru::test {

void FakeScreen::SetCursor(Cursor cursor) {
  cursor_ = cursor;
  cursors_.push_back(cursor);
}

void FakeScreen::Show(Form& form, bool modal) {
  shown_.push_back({form.Name(), modal});
  if (!modal) return;
  if (OnModal) OnModal(form);
  if (form.Visible()) form.UserClose();
  if (form.Visible()) form.Hide();
}

}  // namespace koru::test
