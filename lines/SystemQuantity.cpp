#include "lines/SystemQuantity.h"

#include <string>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// No document records a quantity to more decimals: what a difference of sums has beyond is binary noise.
constexpr int kStockDecimals = 6;

double AsWritten(double sum) { return Val(NumberText(sum)); }

}  // namespace

SystemQuantity::SystemQuantity(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                               LineEditing& editing)
    : controls_(controls),
      flexDetail_(controls.flexDetail),
      shared_(shared),
      lines_(lines),
      editing_(editing) {}

void SystemQuantity::CalculateAllLines() {
  controls_.pgbStatus.SetVisible(true);
  controls_.pgbStatus.SetMax(flexDetail_.Rows() - 1);
  controls_.pgbStatus.SetValue(0);
  {
    const Hourglass hourglass(shared_.services.screen);
    const GridRedrawOff redrawOff(flexDetail_);
    const auto oneMoment = flexDetail_.Rows() > 1 ? shared_.data.BeginReadSnapshot() : nullptr;
    for (int row = 1; row < flexDetail_.Rows(); ++row) {
      controls_.pgbStatus.SetValue(controls_.pgbStatus.Value() + 1);
      const std::string barcode(Trim(flexDetail_.TextMatrix(row, LineColumn::Barcode)));
      FillUnit(row, barcode);
      FillRate(row, barcode);
      FillSystemCounting(row, barcode);
      editing_.CalculateRow(row);
    }
    controls_.pgbStatus.SetVisible(false);
  }
  lines_.UpdateTotalQty();
}

double SystemQuantity::GetQTy(std::int32_t invID, std::string_view barcode) {
  const std::string_view trimmed = Trim(barcode);
  const SqlText documents = DocumentCondition(invID);
  const double received = SumOfQty(
      SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
              "LTrim(RTrim(Barcode))='") +
      Typed(trimmed) + "' and ReceiptID in (select ID from tblInventoryReceipt where " + documents + ")))");
  const double dispatched = SumOfQty(
      SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
              "LTrim(RTrim(Barcode))='") +
      Typed(trimmed) + "' and DispatchID in (select ID from tblInventoryDispatch where " + documents + ")))");
  return Round(AsWritten(received) - AsWritten(dispatched), kStockDecimals);
}

void SystemQuantity::FillUnit(int row, std::string_view barcode) {
  const bool found = FillUnitFrom(
      row, SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in "
                   "(Select ScaleID from tblGoodSaleScale Where Barcode = '") +
               Typed(barcode) + "')");
  if (found) return;
  FillUnitFrom(row,
               SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 Order by ID"));
}

void SystemQuantity::FillRate(int row, std::string_view barcode) {
  const SqlText rest = SqlText("' and Isnull(Value,0)>0 and ") +
                       DocumentCondition(controls_.gmpInventory.SelectedID()) +
                       ")) Order By ReceiveDate Desc";
  const bool found = FillRateFrom(
      row, SqlText("Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch "
                   "Where ID=DispatchID and Barcode='") +
               Typed(barcode) + rest);
  if (found) return;
  FillRateFrom(row,
               SqlText("Select isnull(Value,0) as Value from tblInventoryReceiptDetail,tblInventoryReceipt "
                       "Where ID=ReceiptID and Barcode='") +
                   Typed(barcode) + rest);
}

void SystemQuantity::FillSystemCounting(int row, std::string_view barcode) {
  const double quantity = GetQTy(controls_.gmpInventory.SelectedID(), barcode);
  flexDetail_.SetTextMatrix(row, LineColumn::SystemCounting, NumberText(quantity));
}

SqlText SystemQuantity::DocumentCondition(std::int32_t invID) const {
  SqlText condition;
  // Dispatches, too, carry their date in ReceiveDate.
  if (const auto from = controls_.gdpFromDate.Value())
    condition = condition + "ReceiveDate>='" + *from + "' and ";
  if (const auto to = controls_.gdpToDate.Value()) condition = condition + "ReceiveDate<='" + *to + "' and ";
  return condition + " Code is not NULL and (InventoryID=" + invID +
         " or InventoryID in (Select ChildID from tblInventoryParent Where ID=" + invID;
}

double SystemQuantity::SumOfQty(const SqlText& statement) {
  return shared_.data.rssqlCommon.Open(statement).Field("Qty").Number();
}

bool SystemQuantity::FillUnitFrom(int row, const SqlText& statement) {
  const Recordset units = shared_.data.rssqlCommon.Open(statement);
  if (units.RecordCount() == 0) return false;
  flexDetail_.SetTextMatrix(row, LineColumn::UnitName, units.Field("Name").Text());
  flexDetail_.SetTextMatrix(row, LineColumn::ScaleID, units.Field("ID").Text());
  return true;
}

bool SystemQuantity::FillRateFrom(int row, const SqlText& statement) {
  const Recordset rates = shared_.data.rssqlCommon.Open(statement);
  if (rates.RecordCount() == 0) return false;
  flexDetail_.SetTextMatrix(row, LineColumn::Rate, rates.Field("Value").Text());
  return true;
}

}  // namespace koru
