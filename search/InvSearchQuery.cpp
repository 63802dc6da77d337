#include "search/InvSearchQuery.h"

#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {

InvSearchQuery::InvSearchQuery(const InvSearchControls& criteria)
    : statement_(
          "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') "
          "as "
          "FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as "
          "FarsiFromDate,isnull(FarsiToDate,'') "
          "as FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting where ID<>-1") {
  AddState(criteria.chkTemp, criteria.chkFinal);
  AddNumber(" and ID >=", criteria.txtid1);
  AddNumber(" and ID <=", criteria.txtid2);
  AddText(" and ManualCode >='", criteria.txtMinG, "'");
  AddText(" and ManualCode <='", criteria.txtMaxG, "'");
  AddNumber(" and Code >=", criteria.txtcode1);
  AddNumber(" and Code <=", criteria.txtcode2);
  AddChoice(" and CreatorID =", criteria.cmbcreator);
  AddDate(" and CreateDate >='", criteria.gdpcreatedate1);
  AddDate(" and CreateDate <='", criteria.gdpcreatedate2);
  AddDate(" and FromDate >='", criteria.gdpFromDate1);
  AddDate(" and FromDate <='", criteria.gdpFromDate2);
  AddDate(" and ToDate >='", criteria.gdpToDate1);
  AddDate(" and ToDate <='", criteria.gdpToDate2);
  AddStore(criteria.gmpInventory, criteria.chkAllInvs);
  AddPerson(" and CounterEmployeeID1 =", criteria.mptCounter1);
  AddPerson(" and CounterEmployeeID2 =", criteria.mptCounter2);
  AddPerson(" and CounterEmployeeID3 =", criteria.mptCounter3);
  AddPerson(" and CounterConfirmerID =", criteria.mptConfirmer);
  AddText(" and Notes like '%", criteria.txtNotes, "%'");
  AddText(" and ID in (Select CountingID from tblInventoryCountingDetail where Barcode like '%",
          criteria.txtBarCode, "%')");
  AddText(
      " and ID in (Select CountingID from tblInventoryCountingDetail where Barcode in (Select Barcode from "
      "tblGood "
      "where Name like '%",
      criteria.txtName, "%'))");
  AddText(
      " and ID in (Select CountingID from tblInventoryCountingDetail where Barcode in (Select Barcode from "
      "tblGood "
      "where Code like '%",
      criteria.txtCode, "%'))");
}

void InvSearchQuery::AddState(const CheckBox& temporary, const CheckBox& final) {
  if (temporary.Checked() && !final.Checked()) statement_ += " and (Code is null) ";
  if (!temporary.Checked() && final.Checked()) statement_ += " and (Code is not null) ";
  if (!temporary.Checked() && !final.Checked()) statement_ += " and (2=3) ";
}

void InvSearchQuery::AddNumber(FixedSql comparison, const TextBox& typed) {
  if (Trim(typed.Text()).empty()) return;
  statement_ += comparison;
  statement_ += TypedNumber(typed.Text());
}

void InvSearchQuery::AddText(FixedSql before, const TextBox& typed, FixedSql after) {
  const std::string_view text = Trim(typed.Text());
  if (text.empty()) return;
  statement_ += before;
  statement_ += Typed(text);
  statement_ += after;
}

void InvSearchQuery::AddChoice(FixedSql comparison, const ComboBox& list) {
  if (list.Chosen() == nullptr) return;
  statement_ += comparison;
  statement_ += list.Chosen()->itemData;
}

void InvSearchQuery::AddDate(FixedSql comparison, const DateBox& box) {
  const auto date = box.Value();
  if (!date) return;
  statement_ += comparison;
  statement_ += *date;
  statement_ += "'";
}

void InvSearchQuery::AddStore(const TreeSelector& store, const CheckBox& withChildren) {
  if (store.NothingSelected()) return;
  const std::int32_t id = store.SelectedID();
  statement_ += SqlText(" and (InventoryID =") + id;
  if (withChildren.Checked()) {
    statement_ +=
        SqlText(" or InventoryID in (Select ChildID from tblInventoryParent where tblInventoryParent.ID=") +
        id + ")";
  }
  statement_ += ")";
}

void InvSearchQuery::AddPerson(FixedSql comparison, const PersonSelector& person) {
  if (person.NothingSelected()) return;
  statement_ += comparison;
  statement_ += person.SelectedID();
}

}  // namespace koru
