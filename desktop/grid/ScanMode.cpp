#include "desktop/grid/ScanMode.h"

#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QScopeGuard>
#include <QTableView>
#include <QToolTip>

#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridCells.h"

namespace koru {
namespace {

// The isolates keep the direction of the typed text, whatever its letters are.

QString NotInColumn(const QString& text, const QString& title) {
  return QStringLiteral("«\u2068%1\u2069» در ستون «%2» نيست.").arg(text, title);
}

QString OnlyBeginning(const QString& text) {
  return QStringLiteral("«\u2068%1\u2069» فقط آغاز اين باركد است.").arg(text);
}

}  // namespace

void ScanMode::SetFigureColumns(int first, int last) {
  firstFigure_ = first;
  lastFigure_ = last;
}

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
  MoveTo(search_.Type(current.isValid() ? current : view_.model()->index(0, 0), keys));
  state_ = search_.Failed() ? State::NotFound : search_.Found() ? State::Found : State::Idle;
  if (state_ == State::NotFound) {
    ShowHint(NotInColumn(search_.Text(), TitleOf(view_.currentIndex().column())));
  } else if (hinted) {
    QToolTip::hideText();
  }
}

void ScanMode::Scanned(const QString& text) {
  const QModelIndex row = RowOf(text);
  MoveTo(row.isValid() ? row : view_.currentIndex().siblingAtColumn(scanColumn_));
  search_.Forget();
  if (!row.isValid()) {
    Fail(NotInColumn(text, TitleOf(scanColumn_)));
    unknown_(text);
    return;
  }
  QToolTip::hideText();
  state_ = State::Found;
  GoToFigure();
}

bool ScanMode::EnterPressed() {
  switch (state_) {
    case State::NotFound: {
      const QString text = search_.Text();
      search_.Forget();
      if (view_.currentIndex().column() == scanColumn_ && GoToHiddenRow(text)) return true;
      state_ = State::Dismissed;  // the hint stays: a scanner's Enter follows at once
      failed_();
      if (view_.currentIndex().column() == scanColumn_) unknown_(text);
      return true;
    }
    case State::Figure:
      GoToCell(view_, view_.currentIndex().siblingAtColumn(scanColumn_));
      state_ = State::Ready;
      return true;
    case State::Found:
      return GoToFigure();
    case State::Dismissed:
    case State::Ready:
      if (view_.currentIndex().column() != scanColumn_) return false;
      failed_();
      return true;
    case State::Idle:
    case State::Searching:
      return false;
  }
  return false;
}

bool ScanMode::TabPressed() { return state_ == State::NotFound && EnterPressed(); }

bool ScanMode::FigureStored() {
  if (state_ != State::Figure) return false;
  KeepFigureColumn();
  return EnterPressed();
}

void ScanMode::FigureLeftByScan() {
  if (state_ == State::Figure) KeepFigureColumn();
}

/// The next scans go to the column that a figure was entered into.
void ScanMode::KeepFigureColumn() {
  if (TakesFigure(view_.currentIndex())) figureColumn_ = view_.currentIndex().column();
}

bool ScanMode::TakesFigure(const QModelIndex& cell) const {
  return cell.isValid() && cell.column() >= firstFigure_ && cell.column() <= lastFigure_ &&
         !view_.isColumnHidden(cell.column()) && cell.flags().testFlag(Qt::ItemIsEditable);
}

/// The figure is the column that was entered for the last scanned row, else the first editable cell of the
/// row.
bool ScanMode::GoToFigure() {
  const QModelIndex found = view_.currentIndex();
  if (found.column() != scanColumn_) return false;
  const QModelIndex last = found.siblingAtColumn(figureColumn_);
  const QModelIndex figure = TakesFigure(last) ? last : FirstCellToFill(view_, found.row());
  if (!figure.isValid()) return false;
  if (!search_.Text().isEmpty() && !search_.IsWholeTextOf(found)) {
    Fail(OnlyBeginning(search_.Text()));
    search_.Forget();
    return true;
  }
  search_.Forget();
  GoToCell(view_, figure);
  state_ = State::Figure;
  return true;
}

/// Moves without ending the search.
void ScanMode::MoveTo(const QModelIndex& cell) {
  const State before = std::exchange(state_, State::Searching);
  const auto searched = qScopeGuard([this, before] { state_ = before; });
  GoToCell(view_, cell);
}

/// A text was typed into the scan column that only a row out of sight has: moves on to the row's figure.
bool ScanMode::GoToHiddenRow(const QString& scanned) {
  const QModelIndex row = reveal_(scanned);
  if (!row.isValid()) return false;
  QToolTip::hideText();
  MoveTo(row);
  state_ = State::Found;
  GoToFigure();
  return true;
}

/// The row whose whole text in the scan column is `scanned`, in that column; invalid if there is none. A row
/// out of sight is shown.
QModelIndex ScanMode::RowOf(const QString& scanned) {
  const QAbstractItemModel& rows = *view_.model();
  const std::string wanted = FoldedText(scanned);
  for (int row = 0; row < rows.rowCount(); ++row) {
    const QModelIndex cell = rows.index(row, scanColumn_);
    if (FoldedText(cell.data().toString()) == wanted) return cell;
  }
  return reveal_(scanned);
}

QString ScanMode::TitleOf(int col) const {
  return view_.model()->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
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

void ScanMode::Fail(const QString& hint) {
  state_ = State::Dismissed;
  ShowHint(hint);
  failed_();
}

void ScanMode::ShowHint(const QString& text) { ShowCellHint(view_, view_.currentIndex(), text); }

}  // namespace koru
