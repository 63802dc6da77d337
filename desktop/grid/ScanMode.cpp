#include "desktop/grid/ScanMode.h"

#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QScopeGuard>
#include <QTableView>
#include <QToolTip>

#include "desktop/grid/GridCells.h"

namespace koru {
namespace {

constexpr int kTipMargins = 18;

}  // namespace

void ScanMode::TypeKeys(const QString& keys) {
  if (view_.model()->rowCount() == 0) return;
  if (keys.isEmpty() || !keys.front().isPrint()) {
    search_.Forget();
    if (state_ == State::Found) state_ = State::Idle;
    if (state_ == State::NotFound) state_ = State::Dismissed;
    return;
  }
  const bool hinted = IsHintShown();
  const QModelIndex current = view_.currentIndex();
  const QModelIndex found = search_.Type(current.isValid() ? current : view_.model()->index(0, 0), keys);
  {
    state_ = State::Searching;
    const auto outcome = qScopeGuard([this] {
      state_ = search_.Failed() ? State::NotFound : search_.Found() ? State::Found : State::Idle;
    });
    GoToCell(view_, found);
  }
  if (state_ == State::NotFound) {
    ShowHint();
  } else if (hinted) {
    QToolTip::hideText();
  }
}

bool ScanMode::EnterPressed() {
  switch (state_) {
    case State::NotFound:
      search_.Forget();
      state_ = State::Dismissed;  // the hint stays: a scanner's Enter follows at once
      return true;
    case State::Figure:
      GoToCell(view_, view_.currentIndex().siblingAtColumn(scanColumn_));
      return true;
    case State::Found:
      return GoToFigure();
    case State::Idle:
    case State::Searching:
    case State::Dismissed:
      return false;
  }
  return false;
}

bool ScanMode::TabPressed() { return state_ == State::NotFound && EnterPressed(); }

bool ScanMode::FigureStored() {
  if (state_ != State::Figure) return false;
  figureColumn_ = view_.currentIndex().column();
  return EnterPressed();
}

/// The figure is the column that was entered for the last scanned row, else the first editable cell of the
/// row.
bool ScanMode::GoToFigure() {
  const QModelIndex found = view_.currentIndex();
  if (found.column() != scanColumn_) return false;
  const QModelIndex last = found.siblingAtColumn(figureColumn_);
  const bool takesFigure =
      last.isValid() && !view_.isColumnHidden(figureColumn_) && last.flags().testFlag(Qt::ItemIsEditable);
  const QModelIndex figure = takesFigure ? last : NextCellToFill(view_, found, true);
  if (figure.row() != found.row()) return false;
  search_.Forget();
  GoToCell(view_, figure);
  state_ = State::Figure;
  return true;
}

void ScanMode::MoveBy(const QKeyEvent& key, const std::function<void()>& defaultAction) {
  const QPersistentModelIndex before = view_.currentIndex();
  const bool sideways = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
  const bool atFigure = state_ == State::Figure && sideways;
  defaultAction();
  const QModelIndex now = view_.currentIndex();
  if (atFigure && before.isValid() && now.row() == before.row() && now.flags().testFlag(Qt::ItemIsEditable)) {
    state_ = State::Figure;
  }
}

void ScanMode::CellMoved() {
  if (state_ != State::Searching) Leave();
}

void ScanMode::Leave() {
  search_.Forget();
  if (IsHintShown()) QToolTip::hideText();
  state_ = State::Idle;
}

void ScanMode::ShowHint() {
  const QModelIndex cell = view_.currentIndex();
  const QString title = view_.model()->headerData(cell.column(), Qt::Horizontal, Qt::DisplayRole).toString();
  // The isolates keep the direction of the typed text, whatever its letters are.
  const QString text = QStringLiteral("«\u2068%1\u2069» در ستون «%2» نيست.").arg(search_.Text(), title);
  // Aligned with the right edge of the cell, so that the hint does not extend beyond the window.
  const int width = QFontMetrics(QToolTip::font()).horizontalAdvance(text) + kTipMargins;
  const QPoint corner = view_.visualRect(cell).bottomRight() - QPoint(width, 0);
  QToolTip::showText(view_.viewport()->mapToGlobal(corner),
                     QStringLiteral("<p dir='rtl' style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()),
                     &view_);
}

}  // namespace koru
