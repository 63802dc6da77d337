#include "registration/HeaderValues.h"

namespace koru {

SqlText KeyOrNull(const Selector& selector) {
  return selector.NothingSelected() ? SqlText("NULL") : SqlText() + selector.SelectedID();
}

SqlText DateOrNull(const DateBox& box) {
  return box.Value() ? SqlText("'") + *box.Value() + "'" : SqlText("NULL");
}

SqlText PersianDateOrNull(const DateBox& box) {
  return box.IsEmpty() ? SqlText("NULL") : SqlText("'") + Typed(box.PersianText()) + "'";
}

}  // namespace koru
