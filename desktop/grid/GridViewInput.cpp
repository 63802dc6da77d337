// The keyboard, the mouse and the focus of a GridView.
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <memory>

#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/Keys.h"

namespace koru {

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool begins = state() != EditingState;
  const bool begun = QTableView::edit(index, trigger, event);
  if (begun && begins && state() == EditingState) editing_.Begin(index, trigger);
  return begun;
}

void GridView::mousePressEvent(QMouseEvent* event) {
  // The editor has lost the focus before this; if it is still open, its text was refused and the user stays
  // in the cell.
  if (state() == EditingState) return;
  scanning_.Leave();
  pace_.Forget();
  QTableView::mousePressEvent(event);
  if (!currentIndex().isValid()) GoToFirstCell();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (IsModifierKey(*event)) return QTableView::keyPressEvent(event);
  if (TypesCharacter(*event) && !pace_.IsContinuedBy(*event) && TakeScan()) {
    // The key is the first of the figure: the scanner sends no Enter.
    const std::unique_ptr<QKeyEvent> again(event->clone());
    QApplication::sendEvent(this, again.get());
    return;
  }
  const bool takesNumber = TakesNumber(currentIndex());
  const bool isLetter = takesNumber && TypesCharacter(*event) && !IsNumberKey(*event);
  const bool isRefused = TypesCharacter(*event) && IsLockedForTyping();
  const bool isFirst = !pace_.IsContinuedBy(*event);
  // A digit opens an editor, which gets the key as well and adds it.
  if (TypesCharacter(*event) && (isLetter || !takesNumber)) pace_.Add(*event, {});
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!TypesCharacter(*event) && !enter) pace_.Forget();
  if (LeavesGrid(*event)) {
    FocusOutside(key == Qt::Key_Tab);
  } else if (isLetter) {
    RefuseLetter();
  } else if (isRefused) {
    ShowCellHint(*this, currentIndex(), lockedHint_());
    if (isFirst) emit refused();  // once for a barcode
  } else if (enter) {
    EnterPressed();
  } else if (key == Qt::Key_Delete) {
    DeletePressed(event->modifiers().testFlag(Qt::ControlModifier));
  } else if (event->matches(QKeySequence::Copy)) {
    clipboard_.Copy();
  } else if (event->matches(QKeySequence::Paste)) {
    clipboard_.Paste();
  } else if (!MovesCell(*event) || FinishEdit()) {  // an editor passes on the keys that it does not use
    scanning_.MoveBy(*event, [this, event] { QTableView::keyPressEvent(event); });
  }
}

void GridView::MoveByKey(int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  scanning_.MoveBy(press, [this, &press] { QTableView::keyPressEvent(&press); });
}

bool GridView::TakesNumber(const QModelIndex& cell) const {
  return cell.flags().testFlag(Qt::ItemIsEditable) && model_.StyleOf(cell.column()).number;
}

void GridView::RefuseLetter() {
  ShowCellHint(*this, currentIndex(), QStringLiteral("اين خانه فقط عدد مي گيرد."));
  emit refused();
}

/// Whether the current cell would take a typed text if the grid were not locked.
bool GridView::IsLockedForTyping() const {
  return lockedHint_ && grid_ != nullptr && grid_->Locked() && currentIndex().isValid() &&
         grid_->IsEditable(currentIndex().column());
}

/// Scans the barcode that was sent into the grid. Returns false if there is none.
bool GridView::TakeScan() {
  const bool scanned = scanning_.HasScanColumn() && pace_.IsBarcode();
  const QString text = pace_.Text();
  pace_.Forget();
  if (scanned) scanning_.Scanned(text);
  return scanned;
}

void GridView::EnterPressed() {
  if (TakeScan() || scanning_.EnterPressed()) return;
  const QModelIndex current = currentIndex();
  if (HasCellsToFill(grid_)) {
    GoByEnter(*this, enterMoves_);
  } else if (grid_ != nullptr && current.isValid()) {
    grid_->UserDoubleClick(model_.GridRowOf(current), current.column());
  }
}

void GridView::DeletePressed(bool wholeRow) {
  const QModelIndex current = currentIndex();
  if (!HasCellsToFill(grid_) || !current.isValid()) return;
  if (wholeRow || !current.flags().testFlag(Qt::ItemIsEditable)) {
    DeleteRow();
  } else if (!current.data(Qt::EditRole).toString().isEmpty()) {
    grid_->UserEdit(model_.GridRowOf(current), current.column(), {});
  }
}

void GridView::DeleteRow() {
  const int place = currentIndex().row();
  const int col = currentIndex().column();
  {
    const QScopedValueRollback<bool> deleting(deletes_, true);
    grid_->UserDeleteRow();
  }
  const int last = model_.rowCount() - 1;
  if (place < 0 || last < 0 || model_.CellIndex(grid_->Row(), col).isValid()) return;
  setCurrentIndex(model_.index(std::min(place, last), col));
}

void GridView::focusInEvent(QFocusEvent* event) {
  // A click decides the cell itself: a move, which scrolls, would bring another cell below the mouse.
  if (!currentIndex().isValid() && event->reason() != Qt::MouseFocusReason) GoToFirstCell();
  QTableView::focusInEvent(event);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  const bool left = event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
  if (left && !editing_.IsStoring() && !isAncestorOf(QApplication::focusWidget())) scanning_.Leave();
  QTableView::focusOutEvent(event);
}

bool GridView::event(QEvent* event) {
  // Tab does not reach keyPressEvent.
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier && TakeScan()) return true;
  }
  // Ctrl+Tab may also be the window's shortcut into the grid.
  if (event->type() == QEvent::ShortcutOverride && LeavesGrid(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QTableView::event(event);
}

bool GridView::focusNextPrevChild(bool next) {
  if (scanning_.TabPressed()) return true;
  if (currentIndex().isValid() && GoToCellToFill(*this, next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) { menus_.ShowForRow(event->globalPos()); }

}  // namespace koru
