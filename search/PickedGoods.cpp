#include "search/PickedGoods.h"

#include <initializer_list>

namespace koru {
namespace {

bool IsTyped(std::initializer_list<const TextBox*> boxes) {
  for (const TextBox* const box : boxes) {
    if (!box->Text().empty()) return true;
  }
  return false;
}

}  // namespace

std::string CriteriaBesideTheList(const GoodSearchControls& criteria) {
  const GoodSearchControls& c = criteria;
  std::string names;
  const auto add = [&names](bool applies, const char* name) {
    if (applies) names += (names.empty() ? "" : "، ") + std::string(name);
  };
  add(!c.gmpInventory.NothingSelected(), "رسيد در انبار");
  add(IsTyped({&c.txtMinPrice, &c.txtMaxPrice}), "قيمت");
  add(IsTyped({&c.txtMinQty, &c.txtMaxQty}), "موجودي");
  add(IsTyped({&c.txtMinCurrencyRetailPrice, &c.txtMaxCurrencyRetailPrice}), "قيمت ارزي");
  add(IsTyped({&c.txtMinDiscountPercent, &c.txtMaxDiscountPercent}) || !c.chkKnownDiscount.Checked() ||
          !c.chkUnKnownDiscount.Checked(),
      "تخفيف");
  add(IsTyped({&c.txtNotes}), "توضيحات");
  add(c.cmbCMoneyType.Chosen() != nullptr, "نوع ارز");
  add(!c.gtpSalesUnitType.NothingSelected() || !c.gtpPurchaseUnitType.NothingSelected(), "واحد");
  add(c.cmbGoodType.Chosen() != nullptr, "نوع كالا");
  add(!c.gmpProductGroup.NothingSelected(), "گروه كالا");
  add(!c.gmpLocation.NothingSelected(), "محل");
  return names;
}

}  // namespace koru
