#include "lines/CountingLines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "lines/LineColumns.h"
#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

/// The blanks set the widths of the columns.
constexpr const char* kTitles =
    "   رديف|"
    "^  کد ميله\u200cاي            |"
    "^كد              |"
    "^نام                                   |"
    "^واحد          |"
    "^شماره واحد      |"
    "^شمارش اول         |"
    "^شمارش دوم         |"
    "^شمارش سوم         |"
    "^شمارش مورد قبول  \u00A0|"
    "^موجودي دفتري      |"
    "^كسري       |"
    "^   اضافي   |"
    "^نرخ واحد        |"
    "^ مبلغ كسري           |"
    "^ مبلغ اضافي          |"
    "^ مبلغ موجودي شمارش شده";
constexpr const char* kEditMask = "00000011110001000";

/// The cells that are filled from the stored line; shortage, surplus and amounts are derived.
struct LoadedColumn {
  std::size_t column;
  const char* field;
};
constexpr LoadedColumn kLoadedColumns[] = {
    {LineColumn::Barcode, "Barcode"},
    {LineColumn::GoodCode, "GoodCode"},
    {LineColumn::GoodName, "GoodName"},
    {LineColumn::UnitName, "UnitName"},
    {LineColumn::ScaleID, "ScaleID"},
    {LineColumn::FirstCounting, "FirstCounting"},
    {LineColumn::SecondCounting, "SecondCounting"},
    {LineColumn::ThirdCounting, "ThirdCounting"},
    {LineColumn::AcceptedCounting, "AcceptedCounting"},
    {LineColumn::SystemCounting, "SystemCounting"},
    {LineColumn::Rate, "Value"},
};

/// The number that a box holds after `sum` was written into it: the sums are kept as the texts of their boxes
/// from line to line. A whole number of up to 15 digits survives unchanged and needs no conversion.
double AsItsText(double sum) {
  if (std::fabs(sum) < 1e15 && sum == std::trunc(sum)) return sum;
  return Val(NumberText(sum));
}

}  // namespace

void CountingLines::SetUp() {
  flexDetail_.SetCols(kLineColumns);
  flexDetail_.SetFormatString(kTitles);
  flexDetail_.SetEditMask(kEditMask);
  flexDetail_.SetBackColor(kOddRowColor);  // as after loading: the ground does not change with the first line
}

void CountingLines::FillInvCounterDetailData(std::int32_t id) {
  flexDetail_.SetRows(1);
  const SqlText statement =
      SqlText(
          "select round(isnull(BaseValue,0),0) as Value, "
          "tblGood.barcode,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,"
          "ContradictionCounting,isnull(ScaleID,-1) as ScaleID,isnull(tblGoodScale.Name,'') as UnitName,"
          "isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblInventoryCountingDetail "
          "Inner Join tblGood on tblInventoryCountingDetail.Barcode=tblGood.Barcode "
          "Left Outer Join tblGoodScale On ScaleID=tblGoodScale.ID where CountingID =") +
      id + " Order By RowNumber";
  Recordset records = shared_.data.rssqlgridenterdetail.Open(statement);
  {
    const GridRedrawOff redrawOff(flexDetail_);
    for (; !records.AtEnd(); records.MoveNextAndForget()) AddLine(records);
  }
  UpdateTotalQty();
  ColorRows();
}

void CountingLines::AddLine(const Recordset& record) {
  std::array<std::string, kLineColumns> texts;
  texts[LineColumn::RowNumber] = std::to_string(flexDetail_.Rows());
  for (const auto& [column, field] : kLoadedColumns) texts.at(column) = record.Field(field).Text();

  const double contradiction = record.Field("ContradictionCounting").Number();
  if (contradiction > 0) texts[LineColumn::Surplus] = NumberText(contradiction);
  if (contradiction < 0) texts[LineColumn::Shortage] = NumberText(-contradiction);

  const double rate = record.Field("Value").Number();
  const auto amount = [rate](const std::string& quantity) {
    return quantity.empty() ? std::string() : NumberText(Val(quantity) * rate);
  };
  texts[LineColumn::ShortageAmount] = amount(texts[LineColumn::Shortage]);
  texts[LineColumn::SurplusAmount] = amount(texts[LineColumn::Surplus]);
  texts[LineColumn::CountedAmount] = amount(texts[LineColumn::AcceptedCounting]);
  flexDetail_.AddRow(texts);
}

void CountingLines::UpdateTotalQty() {
  double above = 0;
  double below = 0;
  double counted = 0;
  for (int row = 1; row < flexDetail_.Rows(); ++row) {
    above = AsItsText(above + Val(flexDetail_.TextMatrix(row, LineColumn::SurplusAmount)));
    below = AsItsText(below + Val(flexDetail_.TextMatrix(row, LineColumn::ShortageAmount)));
    counted = AsItsText(counted + Val(flexDetail_.TextMatrix(row, LineColumn::CountedAmount)));
  }
  controls_.txtTotalAboveValue.SetText(NumberText(Round(above, 0)));
  controls_.txtTotalBelowValue.SetText(NumberText(Round(below, 0)));
  controls_.txtTotalValue.SetText(NumberText(Round(counted, 0)));
}

void CountingLines::RefreshRows() {
  {
    const GridRedrawOff redrawOff(flexDetail_);
    const int last = std::min(flexDetail_.Rows() - 1, kMaxLines);
    for (int row = 1; row <= last; ++row) {
      flexDetail_.SetTextMatrix(row, LineColumn::RowNumber, std::to_string(row));
    }
  }
  if (flexDetail_.Rows() - 1 > kMaxLines) {
    throw OverflowError("تعداد رديفهاي شمارش از " + std::to_string(kMaxLines) + " بيشتر است.");
  }
}

void CountingLines::ColorRows() {
  const GridRedrawOff redrawOff(flexDetail_);
  flexDetail_.SetBackColor(kOddRowColor);
  for (int row = 1; row < flexDetail_.Rows(); ++row) {
    flexDetail_.SetRowBackColor(row, row % 2 == 0 ? kEvenRowColor : kOddRowColor);
  }
}

}  // namespace koru
