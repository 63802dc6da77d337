#include "desktop/forms/LineColumnStyles.h"

#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"
#include "lines/LineEditing.h"
#include "lines/LineState.h"

namespace koru {
namespace {

constexpr const char* kTooLarge =
    "اين عدد از 1,000,000,000 بيشتر است. اگر باركد يا عددي اشتباه است، آن را اصلاح كنيد؛ اين نشانه تا تغيير "
    "عدد مي ماند.";

}  // namespace

void SetUpLineColumns(GridView& lines) {
  for (int col = LineColumn::FirstCounting; col < kLineColumns; ++col) {
    ColumnStyle style;
    style.number = true;
    style.grouped = col >= LineColumn::Rate;
    if (col == LineColumn::Shortage || col == LineColumn::ShortageAmount) {
      style.sign = ColumnStyle::Sign::Down;
      style.color = kShortageColor;
    } else if (col == LineColumn::Surplus || col == LineColumn::SurplusAmount) {
      style.sign = ColumnStyle::Sign::Up;
      style.color = kSurplusColor;
    }
    const bool typed = col <= LineColumn::AcceptedCounting || col == LineColumn::Rate;
    if (typed) {
      style.maxUnmarked = kMaxQuantityWithoutWarning;
      style.markText = QString::fromUtf8(kTooLarge);
    }
    lines.SetColumnStyle(col, style);
  }
  ColumnStyle key;
  key.hidden = true;  // the name of the unit has its own column
  lines.SetColumnStyle(LineColumn::ScaleID, key);
  lines.SetStretchColumn(LineColumn::GoodName);
  lines.SetRowNumbers(true);
  ShowUnequalCounts(lines, true);
  lines.SetScanColumn(LineColumn::Barcode);
  lines.SetFigureColumns(LineColumn::FirstCounting, LineColumn::AcceptedCounting);
}

void ShowUnequalCounts(GridView& lines, bool shown) {
  if (!shown) return lines.SetRowSign({});
  lines.SetRowSign({[](const Grid& grid, int row) { return LineState::Of(grid, row).CountsDisagree(); },
                    QStringLiteral("≠"),
                    QStringLiteral("شمارش‌هاي اين سطر با هم برابر نيستند.")});
}

}  // namespace koru
