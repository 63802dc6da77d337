#include "counting/StockCheck.h"

#include "lines/frmMovedStock.h"

namespace koru {

StockCheck::StockCheck(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                       SystemQuantity& quantity, FiguresAge& age)
    : controls_(controls), shared_(shared), age_(age), moved_(controls, lines, quantity) {}

StockCheck::Outcome StockCheck::Run(bool isBeingEntered) {
  const FiguresAge::Time checked = age_.Now();
  const auto moved = moved_.Find();
  if (!moved) return {};
  if (moved->empty()) {
    ReportNone();
    age_.CalculatedAt(checked);
    return {true, {}};
  }
  frmMovedStock list(shared_, controls_, *moved, isBeingEntered);
  list.Show(true);
  list.Unload();
  if (list.Taken().empty()) return {};
  moved_.Take(list.Taken());
  const bool isCurrent = list.Taken().size() == moved->size();
  if (isCurrent) age_.CalculatedAt(checked);
  return {isCurrent, "موجودي تازه " + std::to_string(list.Taken().size()) + " سطر از " +
                         std::to_string(moved->size()) + " سطر تغييركرده گرفته شد."};
}

void StockCheck::ReportNone() const {
  const std::string ago = age_.Ago();
  const std::string since = ago.empty() ? "" : " از زمان محاسبه (" + ago + ") تاكنون";
  shared_.messages.ShowMessage("بررسي تغيير موجودي", "موجودي دفتري هيچ سطري" + since + " تغيير نكرده است.");
}

}  // namespace koru
