#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <unordered_map>

class QModelIndex;

namespace koru {

class Grid;
class GridView;

/// Tints cells of a GridView for a moment: texts that others have entered. The tint is steady, ends by
/// itself, and moves with its row when rows are sorted. One timer serves all cells, and a tint repaints its
/// own cell alone, when it begins and when it ends.
class CellTint {
 public:
  static constexpr int kShownMs = 1500;

  explicit CellTint(GridView& view);

  /// A cell of the grid, by its row and column. A hidden one is not tinted; of a tinted one, the time begins
  /// anew.
  void Show(int gridRow, int col);
  [[nodiscard]] bool Has(const QModelIndex& cell) const;
  /// The number of tinted cells.
  [[nodiscard]] std::size_t Cells() const { return until_.size(); }

 private:
  using Key = std::uint64_t;  ///< the ID of the row, and the column
  struct Shown {
    Key cell = 0;
    int row = 0;  ///< that it had
    qint64 until = 0;
  };

  static Key KeyOf(const Grid& grid, int row, int col);
  void End();
  void Repaint(const Shown& shown);

  GridView& view_;
  QElapsedTimer clock_;
  QTimer timer_;
  std::unordered_map<Key, qint64> until_;  ///< of each tinted cell
  std::deque<Shown> shown_;                ///< in the order in which they end; some have begun anew since
};

}  // namespace koru
