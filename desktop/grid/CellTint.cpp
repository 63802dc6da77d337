#include "desktop/grid/CellTint.h"

#include <algorithm>

#include "desktop/grid/GridView.h"

namespace koru {

CellTint::CellTint(GridView& view) : view_(view) {
  clock_.start();
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &view, [this] { End(); });
}

void CellTint::Show(int gridRow, int col) {
  const Grid* const grid = view_.Rows().Source();
  const QModelIndex cell = view_.Rows().CellIndex(gridRow, col);
  if (grid == nullptr || !cell.isValid() || view_.Rows().StyleOf(col).concealed) return;
  std::erase_if(cells_, [&](const Tinted& tinted) { return tinted.cell == cell; });
  cells_.push_back({cell, grid->RowID(gridRow), clock_.elapsed() + kShownMs});
  view_.update(cell);
  if (!timer_.isActive()) timer_.start(kShownMs);
}

bool CellTint::Has(const QModelIndex& cell) const {
  const Grid* const grid = view_.Rows().Source();
  return grid != nullptr && std::any_of(cells_.begin(), cells_.end(), [&](const Tinted& tinted) {
           return tinted.cell == cell && grid->RowID(view_.Rows().GridRowOf(cell)) == tinted.rowID;
         });
}

void CellTint::End() {
  const qint64 now = clock_.elapsed();
  const auto over =
      std::find_if(cells_.begin(), cells_.end(), [now](const Tinted& tinted) { return tinted.until > now; });
  std::vector<Tinted> ended(cells_.begin(), over);
  cells_.erase(cells_.begin(), over);
  for (const Tinted& tinted : ended) view_.update(tinted.cell);
  if (!cells_.empty()) timer_.start(static_cast<int>(cells_.front().until - now));
}

}  // namespace koru
