#include "counting/GoodsReport.h"

#include <cstddef>

#include "lines/LineColumns.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// A longer list would fill no screen that anybody reads.
constexpr std::size_t kMaxNamed = 50;

std::string NameOf(const PickedGoods::Good& good) {
  return LeftToRight(good.barcode) + (good.name.empty() ? "" : " " + good.name);
}

}  // namespace

std::unordered_set<std::string> BarcodesOf(const Grid& lines) {
  std::unordered_set<std::string> barcodes;
  for (int row = 1; row < lines.Rows(); ++row) barcodes.emplace(lines.TextMatrix(row, LineColumn::Barcode));
  return barcodes;
}

GoodsReport ReportOnGoods(int added, const PickedGoods& picked, const std::unordered_set<std::string>& before,
                          const Grid& lines) {
  GoodsReport report;
  const std::unordered_set<std::string> after = BarcodesOf(lines);
  const bool isFull = lines.Rows() > kMaxLines;
  std::string reason = "پيدا نشد";
  if (!picked.criteria.empty()) reason = "با معيار جستجو نمي خواند: " + picked.criteria;
  if (isFull) reason = "شمارش جا نداشت";
  std::string hadLine;
  std::size_t missing = 0;
  for (const PickedGoods::Good& good : picked.goods) {
    if (before.contains(good.barcode)) {
      hadLine += (hadLine.empty() ? "" : "، ") + NameOf(good);
    } else if (!after.contains(good.barcode) && ++missing <= kMaxNamed) {
      report.message += "\n" + NameOf(good) + ": " + reason;
    }
  }
  report.sentence = added == 0 ? "كالاي تازه اي افزوده نشد." : std::to_string(added) + " سطر افزوده شد.";
  if (!hadLine.empty()) report.sentence += " از پيش در شمارش بود: " + hadLine;
  if (missing == 0) return report;
  report.message = std::to_string(missing) + " كالاي انتخاب شده افزوده نشد:" + report.message;
  if (missing > kMaxNamed) report.message += "\nو " + std::to_string(missing - kMaxNamed) + " كالاي ديگر";
  return report;
}

}  // namespace koru
