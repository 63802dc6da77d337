#include "counting/CountingHeader.h"

#include <utility>

#include "services/UserName.h"

namespace koru {
namespace {

std::int32_t KeyOf(const Value& value) { return value.IsNull() ? Selector::kNothing : value.Integer(); }

std::string NameOfCreator(const Value& creator, dteInvCounting& data) {
  if (creator.IsNull()) return {};
  return FullNameOf(creator.Integer(), data);
}

}  // namespace

std::optional<CountingHeader> ReadCountingHeader(std::int32_t id, dteInvCounting& data) {
  Recordset counting =
      data.rssqleditenter.Open(SqlText("Select * from tblInventoryCounting where ID =") + id);
  if (counting.RecordCount() == 0) return {};
  CountingHeader header;
  header.creator = NameOfCreator(counting.Field("CreatorID"), data);
  header.counters = {KeyOf(counting.Field("CounterEmployeeID1")), KeyOf(counting.Field("CounterEmployeeID2")),
                     KeyOf(counting.Field("CounterEmployeeID3"))};
  header.confirmer = KeyOf(counting.Field("CounterConfirmerID"));
  header.store = KeyOf(counting.Field("InventoryID"));
  header.counting = std::move(counting);
  return header;
}

void ShowCountingHeader(const CountingHeader& header, InvCountingControls& controls) {
  const Recordset& counting = header.counting;
  controls.lblIDVal.SetCaption(counting.Field("ID").Text());
  controls.txtGNO.SetText(counting.Field("ManualCode").Text());
  controls.txtCode.SetText(counting.Field("Code").Text());
  controls.gdpReceiveDate.SetValue(counting.Field("CreateDate").AsDate());
  controls.gdpFromDate.SetValue(counting.Field("FromDate").AsDate());
  controls.gdpToDate.SetValue(counting.Field("ToDate").AsDate());
  controls.mptCounter1.Select(header.counters[0]);
  controls.mptCounter2.Select(header.counters[1]);
  controls.mptCounter3.Select(header.counters[2]);
  controls.mptConfirmer.Select(header.confirmer);
  controls.txtNotes.SetText(counting.Field("Notes").Text());
  controls.txtCreator.SetText(header.creator);
  controls.gmpInventory.Select(header.store);
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
