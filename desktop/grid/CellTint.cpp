#include "desktop/grid/CellTint.h"

#include "desktop/grid/GridView.h"

namespace koru {

CellTint::CellTint(GridView& view) : view_(view) {
  clock_.start();
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &view, [this] { End(); });
}

CellTint::Key CellTint::KeyOf(const Grid& grid, int row, int col) {
  constexpr unsigned kBitsOfColumn = 32;
  return Key{grid.RowID(row)} << kBitsOfColumn | static_cast<std::uint32_t>(col);
}

void CellTint::Show(int gridRow, int col) {
  const Grid* const grid = view_.Rows().Source();
  const QModelIndex cell = view_.Rows().CellIndex(gridRow, col);
  if (grid == nullptr || !cell.isValid() || view_.Rows().StyleOf(col).concealed) return;
  const Key key = KeyOf(*grid, gridRow, col);
  const qint64 until = clock_.elapsed() + kShownMs;
  until_[key] = until;
  shown_.push_back({key, gridRow, until});
  view_.update(cell);
  if (!timer_.isActive()) timer_.start(kShownMs);
}

bool CellTint::Has(const QModelIndex& cell) const {
  const Grid* const grid = view_.Rows().Source();
  if (grid == nullptr || until_.empty()) return false;
  return until_.contains(KeyOf(*grid, view_.Rows().GridRowOf(cell), cell.column()));
}

void CellTint::End() {
  const qint64 now = clock_.elapsed();
  while (!shown_.empty() && shown_.front().until <= now) {
    const Shown shown = shown_.front();
    shown_.pop_front();
    const auto tinted = until_.find(shown.cell);
    if (tinted == until_.end() || tinted->second != shown.until) continue;
    until_.erase(tinted);
    Repaint(shown);
  }
  if (!shown_.empty()) timer_.start(static_cast<int>(shown_.front().until - now));
}

/// Where the cell is now is known if rows were not sorted, deleted or inserted since.
void CellTint::Repaint(const Shown& shown) {
  const Grid* const grid = view_.Rows().Source();
  const auto col = static_cast<int>(static_cast<std::uint32_t>(shown.cell));
  const bool isThere =
      grid != nullptr && shown.row < grid->Rows() && KeyOf(*grid, shown.row, col) == shown.cell;
  if (isThere) {
    view_.update(view_.Rows().CellIndex(shown.row, col));
  } else {
    view_.viewport()->update();
  }
}

}  // namespace koru
