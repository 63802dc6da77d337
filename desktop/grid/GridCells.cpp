#include "desktop/grid/GridCells.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include "platform/controls/Grid.h"

namespace koru {

bool HasCellsToFill(const Grid* grid) {
  if (grid == nullptr) return false;
  for (int col = 0; col < grid->Cols(); ++col) {
    if (grid->IsEditable(col)) return true;
  }
  return false;
}

QModelIndex NextCellToFill(const QTableView& view, const QModelIndex& from, bool forward) {
  const QAbstractItemModel& model = *view.model();
  const int columns = model.columnCount();
  const int cells = model.rowCount() * columns;
  const int step = forward ? 1 : -1;
  const QHeaderView& titles = *view.horizontalHeader();
  const int first = from.row() * columns + titles.visualIndex(from.column());
  for (int at = first + step; at >= 0 && at < cells; at += step) {
    const QModelIndex index = model.index(at / columns, titles.logicalIndex(at % columns));
    if (!view.isColumnHidden(index.column()) && index.flags().testFlag(Qt::ItemIsEditable)) return index;
    if (index.row() > from.row() + 1) break;  // a whole row without an editable cell: no row has one
  }
  return {};
}

QModelIndex FirstCellToFill(const QTableView& view, int row) {
  const QHeaderView& titles = *view.horizontalHeader();
  const QModelIndex first = view.model()->index(row, titles.logicalIndex(0));
  if (!view.isColumnHidden(first.column()) && first.flags().testFlag(Qt::ItemIsEditable)) return first;
  const QModelIndex next = NextCellToFill(view, first, true);
  return next.row() == row ? next : QModelIndex();
}

void GoByEnter(QTableView& view, const EnterMoves& moves) {
  const QModelIndex current = view.currentIndex();
  QModelIndex next =
      moves.down ? current.siblingAtRow(current.row() + 1) : NextCellToFill(view, current, true);
  while (!moves.down && next.isValid() && next.column() == moves.skipped &&
         !next.data(Qt::EditRole).toString().trimmed().isEmpty()) {
    next = NextCellToFill(view, next, true);
  }
  if (next.isValid()) GoToCell(view, next);
}

bool GoToCellToFill(QTableView& view, bool forward) {
  const QModelIndex next = NextCellToFill(view, view.currentIndex(), forward);
  if (!next.isValid()) return false;
  GoToCell(view, next);
  return true;
}

void GoToCell(QTableView& view, const QModelIndex& cell) {
  view.setCurrentIndex(cell);
  view.scrollTo(view.currentIndex());  // the move may have removed rows
}

bool MovesCell(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      return true;
    default:
      return false;
  }
}

bool LeavesGrid(const QKeyEvent& key) {
  const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
  return tab && key.modifiers().testFlag(Qt::ControlModifier);
}

}  // namespace koru
