#include "search/GoodSearchFields.h"

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"
#include "search/Keys.h"

namespace koru {
namespace {

void SelectAllOnFocus(TextBox& box) {
  box.GotFocus.Always([&box] { box.Select(0, Utf16Length(box.Text())); });
}

void BecomeNumberOnLeaving(TextBox& box) {
  box.LostFocus.Always([&box] {
    if (!Trim(box.Text()).empty()) box.SetText(NumberText(TypedNumber(box.Text())));
  });
}

void EmptyOnDelete(ComboBox& list) {
  list.KeyDown.Always([&list](KeyPress press) {
    if (press.key == kKeyDelete && !list.Locked()) list.SetListIndex(-1);
  });
}

}  // namespace

void ConnectFields(GoodSearchControls& controls) {
  GoodSearchControls& c = controls;
  for (TextBox* box : {&c.txtBarCode, &c.txtCode, &c.txtTitle, &c.txtNotes, &c.txtMinPrice, &c.txtMaxPrice,
                       &c.txtMinQty, &c.txtMaxQty, &c.txtMinCurrencyRetailPrice, &c.txtMaxCurrencyRetailPrice,
                       &c.txtMinDiscountPercent, &c.txtMaxDiscountPercent}) {
    SelectAllOnFocus(*box);
  }
  for (TextBox* box : {&c.txtMinPrice, &c.txtMaxPrice, &c.txtMinQty, &c.txtMaxQty,
                       &c.txtMinCurrencyRetailPrice, &c.txtMaxCurrencyRetailPrice}) {
    BecomeNumberOnLeaving(*box);
  }
  EmptyOnDelete(c.cmbGoodType);
  EmptyOnDelete(c.cmbCMoneyType);
  const std::initializer_list<Control*> withMenu = {
      &c.txtTitle,   &c.lblTitle,    &c.txtCode,     &c.lblCode,     &c.txtBarCode,
      &c.lblBarCode, &c.txtMinPrice, &c.txtMaxPrice, &c.lblMaxPrice, &c.lblLocation};
  for (Control* control : withMenu) {
    control->RightClick.Always([&c] { c.menu.PopUp(MenuPlace::Cursor); });
  }
}

void RefreshEntries(GoodSearchControls& controls) {
  const bool typeChosen = controls.cmbGoodType.ListIndex() != -1;
  controls.mnuSearch.SetEnabled(controls.cmdSearch.Enabled());
  controls.mnuNewSearch.SetEnabled(controls.cmdNewSearch.Enabled());
  controls.chkEmptyAllConds.SetEnabled(typeChosen);
  controls.cmdGoodType.SetEnabled(typeChosen && !controls.chkEmptyAllConds.Checked());
}

}  // namespace koru
