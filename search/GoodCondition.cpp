#include "search/GoodCondition.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"
#include "search/PickedList.h"
#include "services/FixQuote.h"

namespace koru {
namespace {

constexpr FixedSql kWithBarcode = " tblGood.Barcode<>'' ";

}  // namespace

GoodCondition::GoodCondition(const GoodSearchControls& criteria)
    : criteria_(criteria), condition_(kWithBarcode) {
  AddLimits();
  AddDiscounts();
  AddPatterns();
  AddUnitsAndTypes();
  AddBranch("GoodGroupID", criteria_.gmpProductGroup, criteria_.chkAllBranches, "tblGoodGroupParent");
  AddBranch("TmpLocationID", criteria_.gmpLocation, criteria_.chkAllLBranches, "tblBPLocationChilds");
  AddStore();
}

SqlText GoodCondition::OfGood(std::string_view barcode) {
  return SqlText(kWithBarcode) + " and " + " tblGood.BarCode in ('','" + Typed(FixQuote(barcode)) + "')";
}

void GoodCondition::And(const SqlText& fragment) {
  condition_ += " and ";
  condition_ += fragment;
}

void GoodCondition::AddLimits() {
  AddLimit(" RetailPrice <= ", criteria_.txtMaxPrice);
  AddLimit(" RetailPrice >= ", criteria_.txtMinPrice);
  AddLimit(" TotalQty <= ", criteria_.txtMaxQty);
  AddLimit(" TotalQty >= ", criteria_.txtMinQty);
  AddLimit(" CurrencyRetailPrice <= ", criteria_.txtMaxCurrencyRetailPrice);
  AddLimit(" CurrencyRetailPrice >= ", criteria_.txtMinCurrencyRetailPrice);
  AddLimit(" StandardDiscountPercent <= ", criteria_.txtMaxDiscountPercent);
  AddLimit(" StandardDiscountPercent >= ", criteria_.txtMinDiscountPercent);
}

void GoodCondition::AddLimit(FixedSql comparison, const TextBox& typed) {
  if (typed.Text().empty()) return;
  And(SqlText(comparison) + TypedNumber(typed.Text()));
}

void GoodCondition::AddDiscounts() {
  if (!criteria_.chkKnownDiscount.Checked()) And(SqlText(" StandardDiscountPercent is null"));
  if (!criteria_.chkUnKnownDiscount.Checked()) And(SqlText(" StandardDiscountPercent is not null"));
}

void GoodCondition::AddPatterns() {
  const std::string& picked = criteria_.txtBarCode.Tag();
  if (!picked.empty()) {
    And(SqlText(" tblGood.BarCode in ") + PickedList(picked));
  } else {
    const std::string& barcode = criteria_.txtBarCode.Text();
    const std::string& title = criteria_.txtTitle.Text();
    const std::string& code = criteria_.txtCode.Text();
    if (!barcode.empty()) AddPattern(" tblGood.BarCode  like '", barcode, "'");
    if (!title.empty()) AddPattern(" Name like '", FixQuote(Trim(title)), "'");
    if (!code.empty()) AddPattern(" tblGood.Code like '", code, "'");
  }
  const std::string& notes = criteria_.txtNotes.Text();
  if (!notes.empty()) AddPattern(" Notes like '", FixQuote(Trim(notes)), "%'");
}

void GoodCondition::AddPattern(FixedSql like, std::string_view written, FixedSql preciseEnd) {
  if (criteria_.optPrecise.Chosen()) {
    std::string starred(written);
    std::replace(starred.begin(), starred.end(), '*', '%');
    And(SqlText(like) + Typed(starred) + preciseEnd);
  } else {
    And(SqlText(like) + "%" + Typed(written) + "%'");
  }
}

void GoodCondition::AddUnitsAndTypes() {
  // The only fragment that contains its own "and".
  if (const auto* currency = criteria_.cmbCMoneyType.Chosen()) {
    condition_ += SqlText(" and CCurrencyTypeID = ") + currency->itemData;
  }
  AddKey(" SaleScaleID = ", criteria_.gtpSalesUnitType);
  AddKey(" PurchaseScaleID = ", criteria_.gtpPurchaseUnitType);
  if (const auto* type = criteria_.cmbGoodType.Chosen()) And(SqlText(" TypeID = ") + type->itemData);
}

void GoodCondition::AddKey(FixedSql comparison, const TreeSelector& selector) {
  if (!selector.NothingSelected()) And(SqlText(comparison) + selector.SelectedID());
}

void GoodCondition::AddBranch(FixedSql column, const TreeSelector& node, const CheckBox& withBranches,
                              FixedSql childTable) {
  if (node.NothingSelected()) return;
  const std::int32_t id = node.SelectedID();
  if (withBranches.Checked()) {
    And(SqlText(" (") + column + "=" + id + " or " + column + " in (Select ChildID from " + childTable +
        " where ID = " + id + "))");
  } else {
    And(SqlText(" ") + column + "=" + id);
  }
}

void GoodCondition::AddStore() {
  if (criteria_.gmpInventory.NothingSelected()) return;
  And(SqlText(" tblGood.BarCode in (Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where "
              "ReceiptID=ID and InventoryID = ") +
      criteria_.gmpInventory.SelectedID() + ")");
}

}  // namespace koru
