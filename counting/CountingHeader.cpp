#include "counting/CountingHeader.h"

namespace koru {
namespace {

std::int32_t KeyOf(const Value& value) { return value.IsNull() ? Selector::kNothing : value.Integer(); }

std::string NameOfCreator(const Value& creator, dteInvCounting& data) {
  if (creator.IsNull()) return {};
  const Recordset user =
      data.rssqlcreator.Open(SqlText("Select FullName from tblUser where ID=") + creator.Integer());
  return user.RecordCount() == 0 ? std::string() : user.Field("FullName").Text();
}

}  // namespace

bool FillInvCountingData(std::int32_t id, dteInvCounting& data, CountingFormControls& controls) {
  const Recordset counting =
      data.rssqleditenter.Open(SqlText("Select * from tblInventoryCounting where ID =") + id);
  if (counting.RecordCount() == 0) return false;

  controls.lblIDVal.SetCaption(counting.Field("ID").Text());
  controls.txtGNO.SetText(counting.Field("ManualCode").Text());
  controls.txtCode.SetText(counting.Field("Code").Text());
  controls.gdpReceiveDate.SetValue(counting.Field("CreateDate").AsDate());
  controls.gdpFromDate.SetValue(counting.Field("FromDate").AsDate());
  controls.gdpToDate.SetValue(counting.Field("ToDate").AsDate());
  controls.mptCounter1.Select(KeyOf(counting.Field("CounterEmployeeID1")));
  controls.mptCounter2.Select(KeyOf(counting.Field("CounterEmployeeID2")));
  controls.mptCounter3.Select(KeyOf(counting.Field("CounterEmployeeID3")));
  controls.mptConfirmer.Select(KeyOf(counting.Field("CounterConfirmerID")));
  controls.txtNotes.SetText(counting.Field("Notes").Text());
  controls.txtCreator.SetText(NameOfCreator(counting.Field("CreatorID"), data));
  controls.gmpInventory.Select(KeyOf(counting.Field("InventoryID")));
  return true;
}

void ClearCounting(CountingFormControls& controls) {
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
