#include "search/GoodsPicking.h"

#include <string>
#include <utility>

#include "platform/ports/ComponentError.h"
#include "platform/text/Text.h"
#include "search/PickedList.h"

namespace koru {
namespace {

/// Whether the picker has no good to show.
bool IsEmpty(const GoodsPicker& picker) {
  return picker.List().empty() && picker.Name().empty() && picker.Barcode().empty() && picker.Code().empty();
}

/// A list of one good is an empty literal and a barcode, so that its last comma is its fourth character.
bool NamesOneGood(std::string_view list) {
  const std::size_t comma = list.rfind(',');
  return comma != std::string_view::npos && Utf16Length(list.substr(0, comma)) == 3;
}

}  // namespace

void GoodsPicking::Host() {
  try {
    GrnBPGoodPicker_ = shared_.services.components.Create(GoodsPicker::kClassName);
  } catch (const ComponentError&) {
    GrnBPGoodPicker_.reset();
  }
  if (GoodsPicker* const picker = Picker()) {
    picker->SetConnectionString(shared_.data.ConnectionString());
    picker->SetUserID(shared_.user.userID);
  }
}

void GoodsPicking::StartAfresh() {
  if (GrnBPGoodPicker_ == nullptr) return;
  Host();
  if (store_) SetInventory(*store_);
}

void GoodsPicking::SetInventory(std::int32_t id) {
  store_ = id;
  if (GoodsPicker* const picker = Picker()) picker->SetInventory(id);
}

void GoodsPicking::Pick() {
  GoodsPicker* const picker = Picker();
  if (picker == nullptr) return;
  picker->SetSeveralGoods(true);
  picker->Show();
  if (controls_.txtBarCode.Tag().empty() && IsEmpty(*picker)) return;
  const std::string list = picker->List();
  controls_.txtBarCode.SetTag(list);
  if (picker->LeftStore()) controls_.gmpInventory.ClearSelection();
  if (!list.empty() && !NamesOneGood(list)) {
    for (TextBox* box : {&controls_.txtBarCode, &controls_.txtTitle, &controls_.txtCode})
      box->SetText("چند کالا");
    return;
  }
  controls_.txtTitle.SetText(picker->Name());
  controls_.txtBarCode.SetText(picker->Barcode());
  controls_.txtCode.SetText(picker->Code());
}

std::vector<PickedGoods::Good> GoodsPicking::GoodsIn(const std::string& list) const {
  std::vector<PickedGoods::Good> goods;
  const GoodsPicker* const picker = Picker();
  for (std::string& barcode : BarcodesIn(list)) {
    std::string name = picker == nullptr ? std::string() : picker->NameOf(barcode);
    goods.push_back({std::move(barcode), std::move(name)});
  }
  return goods;
}

}  // namespace koru
