#include "tests/search/PlainGoodSearch.h"

namespace koru {
namespace {

std::string Replaced(const std::string& text, char from, const std::string& to) {
  std::string replaced;
  for (const char c : text) replaced += c == from ? to : std::string(1, c);
  return replaced;
}

std::string Pattern(const PlainGoodSearch& s, const std::string& column, const std::string& text,
                    const char* end) {
  if (s.precise) return column + "like '" + Replaced(text, '*', "%") + end;
  return column + "like '%" + text + "%'";
}

std::string Doubled(const std::string& typed) { return Replaced(WithoutOuterBlanks(typed), '\'', "''"); }

std::string Branch(const std::string& column, const std::string& table, int key, bool all) {
  const std::string id = std::to_string(key);
  if (!all) return " " + column + "=" + id;
  return " (" + column + "=" + id + " or " + column + " in (Select ChildID from " + table +
         " where ID = " + id + "))";
}

std::vector<std::string> Texts(const PlainGoodSearch& s) {
  std::vector<std::string> fragments;
  if (!s.picked.empty()) fragments.push_back(" tblGood.BarCode in " + s.picked);
  if (s.picked.empty() && !s.barcode.empty())
    fragments.push_back(Pattern(s, " tblGood.BarCode  ", s.barcode, "'"));
  if (s.picked.empty() && !s.title.empty()) fragments.push_back(Pattern(s, " Name ", Doubled(s.title), "'"));
  if (s.picked.empty() && !s.code.empty()) fragments.push_back(Pattern(s, " tblGood.Code ", s.code, "'"));
  if (!s.notes.empty()) fragments.push_back(Pattern(s, " Notes ", Doubled(s.notes), "%'"));
  return fragments;
}

std::string Joined(const std::vector<std::string>& fragments) {
  std::string joined;
  for (const std::string& fragment : fragments) joined += " and " + fragment;
  return joined;
}

}  // namespace

std::string PlainGoodSearch::Condition(const std::vector<int>& currencies,
                                       const std::vector<int>& types) const {
  const std::array<const char*, 8> columns = {" RetailPrice <= ",
                                              " RetailPrice >= ",
                                              " TotalQty <= ",
                                              " TotalQty >= ",
                                              " CurrencyRetailPrice <= ",
                                              " CurrencyRetailPrice >= ",
                                              " StandardDiscountPercent <= ",
                                              " StandardDiscountPercent >= "};
  std::vector<std::string> before;
  for (std::size_t i = 0; i < limits.size(); ++i) {
    if (!limits.at(i).number.empty()) before.push_back(columns.at(i) + limits.at(i).number);
  }
  if (!knownDiscount) before.emplace_back(" StandardDiscountPercent is null");
  if (!unknownDiscount) before.emplace_back(" StandardDiscountPercent is not null");
  std::vector<std::string> after;
  if (saleUnit) after.push_back(" SaleScaleID = " + std::to_string(*saleUnit));
  if (purchaseUnit) after.push_back(" PurchaseScaleID = " + std::to_string(*purchaseUnit));
  if (type >= 0) after.push_back(" TypeID = " + std::to_string(types.at(static_cast<std::size_t>(type))));
  if (group) after.push_back(Branch("GoodGroupID", "tblGoodGroupParent", *group, allGroups));
  if (location) after.push_back(Branch("TmpLocationID", "tblBPLocationChilds", *location, allLocations));
  if (store) {
    after.push_back(
        " tblGood.BarCode in (Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where "
        "ReceiptID=ID and "
        "InventoryID = " +
        std::to_string(*store) + ")");
  }
  std::string condition = " tblGood.Barcode<>'' " + Joined(before) + Joined(Texts(*this));
  if (currency >= 0) {
    condition +=
        " and CCurrencyTypeID = " + std::to_string(currencies.at(static_cast<std::size_t>(currency)));
  }
  return condition + Joined(after);
}

void PlainGoodSearch::FillIn(frmGoodSearch& form) const {
  form.cmdNewSearch.UserClick();
  TextBox* const bounds[] = {&form.txtMaxPrice,
                             &form.txtMinPrice,
                             &form.txtMaxQty,
                             &form.txtMinQty,
                             &form.txtMaxCurrencyRetailPrice,
                             &form.txtMinCurrencyRetailPrice,
                             &form.txtMaxDiscountPercent,
                             &form.txtMinDiscountPercent};
  for (std::size_t i = 0; i < limits.size(); ++i) bounds[i]->UserType(limits.at(i).typed);
  form.chkKnownDiscount.UserCheck(knownDiscount);
  form.chkUnKnownDiscount.UserCheck(unknownDiscount);
  form.txtBarCode.SetTag(picked);
  form.txtBarCode.UserType(barcode);
  form.txtTitle.UserType(title);
  form.txtCode.UserType(code);
  form.txtNotes.UserType(notes);
  OptionButton* const options[] = {&form.optNonPrecise, &form.optPrecise};
  options[precise ? 1 : 0]->UserChoose();
  form.cmbCMoneyType.UserChoose(currency);
  form.cmbGoodType.UserChoose(type);
  form.gtpSalesUnitType.UserSelect(saleUnit.value_or(-1));
  form.gtpPurchaseUnitType.UserSelect(purchaseUnit.value_or(-1));
  form.gmpProductGroup.UserSelect(group.value_or(-1));
  form.gmpLocation.UserSelect(location.value_or(-1));
  form.gmpInventory.UserSelect(store.value_or(-1));
  form.chkAllBranches.UserCheck(allGroups);
  form.chkAllLBranches.UserCheck(allLocations);
}

std::vector<GoodCriterion> GoodCriteria() {
  using S = PlainGoodSearch;
  using R = std::mt19937;
  static const std::array<std::string, 5> kLists = {"('','100')", "('','100','200')", "( '' , '30''0' )",
                                                    "('كتاب')", "('','a','b','c')"};
  std::vector<GoodCriterion> all = {
      [](S& s, R&) { s.knownDiscount = false; },
      [](S& s, R&) { s.unknownDiscount = false; },
      [](S& s, R& r) { s.picked = AnyOf(kLists, r); },
      [](S& s, R& r) { s.barcode = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.title = AnyOf(kTexts, r); },
      [](S& s, R&) { s.title = "O'Neil*"; },
      [](S& s, R& r) { s.code = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.notes = AnyOf(kTexts, r); },
      [](S& s, R&) { s.notes = "'"; },
      [](S& s, R&) { s.notes = s.title = s.code = s.barcode = "  "; },
      [](S& s, R&) { s.precise = false; },
      [](S& s, R& r) { s.currency = static_cast<int>(r() % 2); },
      [](S& s, R& r) { s.type = static_cast<int>(r() % 2); },
      [](S& s, R& r) { s.saleUnit = static_cast<int>(r() % 50); },
      [](S& s, R& r) { s.purchaseUnit = static_cast<int>(r() % 50); },
      [](S& s, R& r) { s.group = static_cast<int>(r() % 50); },
      [](S& s, R& r) { s.group = static_cast<int>(r() % 50), s.allGroups = false; },
      [](S& s, R& r) { s.location = static_cast<int>(r() % 50); },
      [](S& s, R& r) { s.location = static_cast<int>(r() % 50), s.allLocations = false; },
      [](S& s, R& r) { s.store = static_cast<int>(r() % 50); }};
  for (std::size_t i = 0; i < 8; ++i)
    all.emplace_back([i](S& s, R& r) { s.limits.at(i) = AnyOf(kNumberCases, r); });
  all.emplace_back([](S& s, R&) { s.limits.at(1) = {"  ", "0"}; });
  return all;
}

}  // namespace koru
