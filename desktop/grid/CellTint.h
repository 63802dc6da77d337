#pragma once

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QTimer>
#include <cstdint>
#include <vector>

namespace koru {

class GridView;

/// Tints cells of a GridView for a moment: texts that others have entered. The tint is steady and ends by
/// itself; a cell that is sorted away loses it. One timer serves all cells, and a tint repaints its own cell
/// alone, when it begins and when it ends.
class CellTint {
 public:
  static constexpr int kShownMs = 1500;

  explicit CellTint(GridView& view);

  /// A cell of the grid, by its row and column. A hidden one is not tinted; of a tinted one, the time begins
  /// anew.
  void Show(int gridRow, int col);
  [[nodiscard]] bool Has(const QModelIndex& cell) const;
  /// The number of tinted cells.
  [[nodiscard]] std::size_t Cells() const { return cells_.size(); }

 private:
  struct Tinted {
    QPersistentModelIndex cell;
    std::uint32_t rowID = 0;
    qint64 until = 0;
  };

  void End();

  GridView& view_;
  QElapsedTimer clock_;
  QTimer timer_;
  std::vector<Tinted> cells_;  ///< in the order in which they end
};

}  // namespace koru
