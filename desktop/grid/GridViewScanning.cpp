#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolTip>
#include <utility>

#include "desktop/grid/GridView.h"

// How a GridView is searched by typing and how scanned rows get their figures.

namespace koru {
namespace {

constexpr int kTipMargins = 18;

}  // namespace

void GridView::keyboardSearch(const QString& keys) {
  if (model_.rowCount() == 0) return;
  if (keys.isEmpty() || !keys.front().isPrint()) {
    search_.Forget();
    return;
  }
  const QModelIndex at = currentIndex().isValid() ? currentIndex() : model_.index(0, 0);
  {
    const QScopedValueRollback<bool> moves(scanMoves_, true);
    GoTo(search_.Type(at, keys));
  }
  if (search_.Failed()) {
    TellNotFound();
  } else {
    TakeTellingBack();
  }
}

void GridView::TellNotFound() {
  const QModelIndex cell = currentIndex();
  const QString title = model_.headerData(cell.column(), Qt::Horizontal, Qt::DisplayRole).toString();
  // The typed text keeps its own direction in the sentence, and its letters whatever they are.
  const QString text = QStringLiteral("«\u2068%1\u2069» در ستون «%2» نيست.").arg(search_.Text(), title);
  // It begins under the cell's right edge, as everything does here, or it would go out of the window.
  const int width = QFontMetrics(QToolTip::font()).horizontalAdvance(text) + kTipMargins;
  const QPoint corner = visualRect(cell).bottomRight() - QPoint(width, 0);
  tells_ = true;
  QToolTip::showText(viewport()->mapToGlobal(corner),
                     QStringLiteral("<p dir='rtl' style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()),
                     this);
}

void GridView::TakeTellingBack() {
  if (std::exchange(tells_, false)) QToolTip::hideText();
}

/// From a row that was found by a scan to the cell for its figure; false when this is no such row.
bool GridView::GoToScannedFigure() {
  const QModelIndex found = currentIndex();
  if (!search_.Found() || found.column() != scanColumn_) return false;
  const QModelIndex last = found.siblingAtColumn(figureColumn_);
  const bool usual =
      last.isValid() && !isColumnHidden(figureColumn_) && last.flags().testFlag(Qt::ItemIsEditable);
  const QModelIndex figure = usual ? last : NextCellToFill(found, true);
  if (figure.row() != found.row()) return false;
  search_.Forget();
  GoTo(figure);
  scanned_ = true;
  return true;
}

void GridView::GoBackToScan() { GoTo(currentIndex().siblingAtColumn(scanColumn_)); }

void GridView::LeaveScanning() {
  search_.Forget();
  TakeTellingBack();
  scanned_ = false;
}

/// A scanned row has several figures: sideways among them the person still works on that row.
void GridView::MovePressed(QKeyEvent& key) {
  const QPersistentModelIndex before = currentIndex();
  const bool sideways = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
  const bool scanned = scanned_ && sideways;
  QTableView::keyPressEvent(&key);
  const QModelIndex now = currentIndex();
  if (scanned && before.isValid() && now.row() == before.row() && now.flags().testFlag(Qt::ItemIsEditable)) {
    scanned_ = true;
  }
}

}  // namespace koru
