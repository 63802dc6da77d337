#include "desktop/grid/CellEditing.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>

#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

void ReturnTo(QLineEdit& editor) {
  editor.setFocus();
  editor.selectAll();
}

}  // namespace

void CellEditing::Begin(const QModelIndex& cell, QAbstractItemView::EditTrigger trigger) {
  cell_ = cell;
  openedBy_ = trigger == QAbstractItemView::AnyKeyPressed ? State::Typed : State::Opened;
}

QLineEdit* CellEditing::Editor() const {
  return qobject_cast<QLineEdit*>(cell_.isValid() ? view_.indexWidget(cell_) : nullptr);
}

CellEditing::State CellEditing::CurrentState() const {
  return Editor() == nullptr ? State::Closed : openedBy_;
}

/// Returns true if the edit is over: the text was stored, or the cell can no longer be edited.
bool CellEditing::Store(QLineEdit& editor) {
  const GridModel& rows = view_.Rows();
  if (rows.Source() == nullptr || !cell_.isValid() || !cell_.flags().testFlag(Qt::ItemIsEditable))
    return true;
  if (editor.text() == cell_.data(Qt::EditRole).toString()) return true;
  const QScopedValueRollback<bool> storing(storing_, true);
  return rows.Source()->UserEdit(cell_.row() + 1, cell_.column(),
                                 FromQt(rows.TextToStore(cell_.column(), editor.text())));
}

void CellEditing::Close(QLineEdit& editor) {
  cell_ = QPersistentModelIndex();
  view_.closeEditor(&editor, QAbstractItemDelegate::NoHint);
}

void CellEditing::CloseIfReadOnly() {
  QLineEdit* const editor = Editor();
  if (editor != nullptr && !storing_ && !cell_.flags().testFlag(Qt::ItemIsEditable)) Close(*editor);
}

bool CellEditing::Finish() {
  QLineEdit* const editor = Editor();
  if (editor == nullptr) return true;
  if (!Store(*editor)) {
    ReturnTo(*editor);
    return false;
  }
  Close(*editor);
  return true;
}

bool CellEditing::KeyPressed(QLineEdit& editor, const QKeyEvent& key) {
  if (key.key() == Qt::Key_Escape) {
    Close(editor);
    return true;
  }
  if (key.matches(QKeySequence::Paste)) {
    if (!CellClipboard::HoldsSeveralTexts()) return false;
    const QModelIndex from = cell_;
    Close(editor);
    view_.setFocus();
    view_.Clipboard().Paste(from);
    return true;
  }
  return MoveOut(editor, key);
}

bool CellEditing::MoveOut(QLineEdit& editor, const QKeyEvent& key) {
  const int pressed = key.key();
  const bool enter = pressed == Qt::Key_Return || pressed == Qt::Key_Enter;
  const bool tab = pressed == Qt::Key_Tab || pressed == Qt::Key_Backtab;
  const bool upDown = pressed == Qt::Key_Up || pressed == Qt::Key_Down;
  const bool sideways = openedBy_ == State::Typed && (pressed == Qt::Key_Left || pressed == Qt::Key_Right);
  if (!enter && !tab && !upDown && !sideways) return false;
  const QPointer<QLineEdit> alive(&editor);
  const bool stored = Store(editor);
  if (alive.isNull()) return true;
  if (!stored) {
    ReturnTo(editor);
    return true;
  }
  Close(editor);
  view_.setFocus();
  if (upDown || sideways) {
    view_.MoveByKey(pressed);
  } else if (LeavesGrid(key)) {
    view_.FocusOutside(pressed == Qt::Key_Tab);
  } else if (!enter || !view_.Scanning().FigureStored()) {
    GoToCellToFill(view_, pressed != Qt::Key_Backtab);
  }
  return true;
}

void CellEditing::FocusLeft(QLineEdit& editor) {
  if (storing_) return;
  if (!view_.hasFocus()) view_.Scanning().Leave();
  const QPointer<QLineEdit> alive(&editor);
  const bool stored = Store(editor);
  if (alive.isNull()) return;
  if (stored) {
    Close(editor);
    return;
  }
  // The new focus widget still handles its focus event; return to the refused text afterwards.
  QTimer::singleShot(0, &editor, [&editor] {
    if (editor.isVisible()) ReturnTo(editor);  // the form may have stopped accepting figures meanwhile
  });
}

}  // namespace koru
