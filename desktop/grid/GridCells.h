#pragma once

#include <QModelIndex>

class QKeyEvent;
class QTableView;

namespace koru {

class Grid;

// Moving among the cells of a grid that can be edited. A view here is a view of a GridModel.

/// Whether any column can be edited; false without a grid.
[[nodiscard]] bool HasCellsToFill(const Grid* grid);

/// The next editable cell after `from` in reading order of the columns shown, or the previous one; an invalid
/// index if there is none.
[[nodiscard]] QModelIndex NextCellToFill(const QTableView& view, const QModelIndex& from, bool forward);

/// The first editable cell of a row in the order in which the columns are shown; an invalid index if there is
/// none.
[[nodiscard]] QModelIndex FirstCellToFill(const QTableView& view, int row);

/// What Enter does in a grid with editable cells.
struct EnterMoves {
  bool down = false;  ///< to the same column of the next row, instead of the next editable cell
  int skipped = -1;   ///< a column whose cells Enter skips where they have a text; -1: none
};

/// Makes the cell that Enter moves to the current one, if there is one.
void GoByEnter(QTableView& view, const EnterMoves& moves);

/// Makes the next or previous editable cell the current one. Returns false if there is none.
bool GoToCellToFill(QTableView& view, bool forward);

/// Makes `cell` the current one and scrolls to it.
void GoToCell(QTableView& view, const QModelIndex& cell);

/// Whether the key moves a view's current cell: an arrow key, PageUp, PageDown, Home or End, with any
/// modifiers.
[[nodiscard]] bool MovesCell(const QKeyEvent& key);

/// Whether the key moves the focus out of the grid: Ctrl+Tab or Ctrl+Shift+Tab.
[[nodiscard]] bool LeavesGrid(const QKeyEvent& key);

}  // namespace koru
