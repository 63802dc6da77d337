#include "counting/CountingHeader.h"

#include "services/UserName.h"

namespace koru {
namespace {

std::int32_t KeyOf(const Value& value) { return value.IsNull() ? Selector::kNothing : value.Integer(); }

std::string NameOfCreator(const Value& creator, dteInvCounting& data) {
  if (creator.IsNull()) return {};
  return FullNameOf(creator.Integer(), data);
}

}  // namespace

bool FillInvCountingData(std::int32_t id, dteInvCounting& data, InvCountingControls& controls) {
  const Recordset counting =
      data.rssqleditenter.Open(SqlText("Select * from tblInventoryCounting where ID =") + id);
  if (counting.RecordCount() == 0) return false;
  // Everything that can fail comes first: a save after a partial change would write one counting over
  // another.
  const std::string creator = NameOfCreator(counting.Field("CreatorID"), data);
  const std::int32_t counter1 = KeyOf(counting.Field("CounterEmployeeID1"));
  const std::int32_t counter2 = KeyOf(counting.Field("CounterEmployeeID2"));
  const std::int32_t counter3 = KeyOf(counting.Field("CounterEmployeeID3"));
  const std::int32_t confirmer = KeyOf(counting.Field("CounterConfirmerID"));
  const std::int32_t store = KeyOf(counting.Field("InventoryID"));

  controls.lblIDVal.SetCaption(counting.Field("ID").Text());
  controls.txtGNO.SetText(counting.Field("ManualCode").Text());
  controls.txtCode.SetText(counting.Field("Code").Text());
  controls.gdpReceiveDate.SetValue(counting.Field("CreateDate").AsDate());
  controls.gdpFromDate.SetValue(counting.Field("FromDate").AsDate());
  controls.gdpToDate.SetValue(counting.Field("ToDate").AsDate());
  controls.mptCounter1.Select(counter1);
  controls.mptCounter2.Select(counter2);
  controls.mptCounter3.Select(counter3);
  controls.mptConfirmer.Select(confirmer);
  controls.txtNotes.SetText(counting.Field("Notes").Text());
  controls.txtCreator.SetText(creator);
  controls.gmpInventory.Select(store);
  return true;
}

void ClearCounting(InvCountingControls& controls) {
  controls.lblIDVal.SetCaption({});
  for (TextBox* box : {&controls.txtCode, &controls.txtGNO, &controls.txtNotes, &controls.txtTotalAboveValue,
                       &controls.txtTotalBelowValue, &controls.txtTotalValue, &controls.txtCreator}) {
    box->SetText({});
  }
  for (Selector* selector :
       {static_cast<Selector*>(&controls.mptCounter1), static_cast<Selector*>(&controls.mptCounter2),
        static_cast<Selector*>(&controls.mptCounter3), static_cast<Selector*>(&controls.mptConfirmer),
        static_cast<Selector*>(&controls.gmpInventory)}) {
    selector->ClearSelection();
  }
  for (DateBox* date : {&controls.gdpCreateDate, &controls.gdpFromDate, &controls.gdpToDate}) date->Clear();
  controls.flexDetail.SetRows(1);
}

std::string SignedInFullName(std::int32_t userID, dteInvCounting& data) {
  const Recordset user = data.rssqlcreator.Open(SqlText("select FullName from tbluser where ID =") + userID);
  return user.RecordCount() == 0 ? std::string() : user.Field("FullName").Text();
}

}  // namespace koru
