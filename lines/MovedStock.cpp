#include "lines/MovedStock.h"

#include <utility>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

bool HasMoved(const MovedLine& line) { return line.shownStock.empty() || line.Difference() != 0; }

}  // namespace

double MovedLine::Difference() const { return figures.bookStock.value_or(0) - Val(shownStock); }

MovedStock::MovedStock(InvCountingControls& controls, CountingLines& lines, SystemQuantity& quantity)
    : flexDetail_(controls.flexDetail), lines_(lines), quantity_(quantity) {}

std::optional<std::vector<MovedLine>> MovedStock::Find() {
  auto figures = quantity_.ReadAllLines();
  if (!figures) return std::nullopt;
  std::vector<MovedLine> moved;
  int row = 0;
  for (BookFigures& now : *figures) {
    ++row;
    const std::string_view shown = Trim(flexDetail_.TextMatrix(row, LineColumn::SystemCounting));
    MovedLine line{row, std::string(shown), std::move(now)};
    if (HasMoved(line)) moved.push_back(std::move(line));
  }
  return moved;
}

void MovedStock::Take(const std::vector<MovedLine>& moved) {
  {
    const GridRedrawOff redrawOff(flexDetail_);
    for (const MovedLine& line : moved) quantity_.FillLine(line.row, line.figures);
  }
  lines_.UpdateTotalQty();
}

}  // namespace koru
