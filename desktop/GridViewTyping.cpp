#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>

#include "desktop/GridView.h"
#include "desktop/QtText.h"

// How a GridView is walked through and typed into; GridView.cpp has how it is shown.

namespace koru {

bool GridView::HasCellsToFill() const {
  if (grid_ == nullptr) return false;
  for (int col = 0; col < grid_->Cols(); ++col) {
    if (grid_->IsEditable(col)) return true;
  }
  return false;
}

QModelIndex GridView::NextCellToFill(const QModelIndex& from, bool forward) const {
  const int cells = model_.rowCount() * model_.columnCount();
  const int step = forward ? 1 : -1;
  for (int at = from.row() * model_.columnCount() + from.column() + step; at >= 0 && at < cells; at += step) {
    const QModelIndex index = model_.index(at / model_.columnCount(), at % model_.columnCount());
    if (!isColumnHidden(index.column()) && index.flags().testFlag(Qt::ItemIsEditable)) return index;
    if (at / model_.columnCount() > from.row() + 1)
      break;  // a whole row without a cell to fill: there is none
  }
  return {};
}

bool GridView::GoToCellToFill(bool forward) {
  const QModelIndex next = NextCellToFill(currentIndex(), forward);
  if (!next.isValid()) return false;
  setCurrentIndex(next);
  scrollTo(next);
  return true;
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool begins = state() != EditingState;
  const bool begun = QTableView::edit(index, trigger, event);
  if (begun && begins && state() == EditingState) {
    edited_ = index;
    typing_ = trigger == AnyKeyPressed;
  }
  return begun;
}

/// True when the cell's edit is over: the text was stored, or nobody may type there any more.
bool GridView::Store(QLineEdit& edit) {
  if (grid_ == nullptr || !edited_.isValid() || !edited_.flags().testFlag(Qt::ItemIsEditable)) return true;
  const QString before = edited_.data(Qt::EditRole).toString();
  if (edit.text() == before) return true;
  const QScopedValueRollback<bool> storing(storing_, true);
  return grid_->UserEdit(edited_.row() + 1, edited_.column(), FromQt(edit.text()));
}

void GridView::Close(QLineEdit& edit) {
  edited_ = QPersistentModelIndex();
  closeEditor(&edit, QAbstractItemDelegate::NoHint);
}

bool GridView::FinishEdit() {
  auto* const edit = qobject_cast<QLineEdit*>(edited_.isValid() ? indexWidget(edited_) : nullptr);
  if (edit == nullptr) return true;
  if (!Store(*edit)) {
    edit->setFocus();
    edit->selectAll();
    return false;
  }
  Close(*edit);
  return true;
}

bool GridView::EditorKey(QLineEdit& edit, const QKeyEvent& key) {
  if (key.key() == Qt::Key_Escape) {
    Close(edit);
    return true;
  }
  return MoveOutOfEdit(edit, key);
}

bool GridView::MoveOutOfEdit(QLineEdit& edit, const QKeyEvent& key) {
  const int pressed = key.key();
  const bool next = pressed == Qt::Key_Return || pressed == Qt::Key_Enter || pressed == Qt::Key_Tab;
  const bool upDown = pressed == Qt::Key_Up || pressed == Qt::Key_Down;
  const bool sideways = typing_ && (pressed == Qt::Key_Left || pressed == Qt::Key_Right);
  if (!next && !upDown && !sideways && pressed != Qt::Key_Backtab) return false;
  const QPointer<QLineEdit> alive(&edit);
  const bool stored = Store(edit);
  if (alive.isNull()) return true;
  if (!stored) {
    edit.setFocus();
    edit.selectAll();
    return true;
  }
  Close(edit);
  setFocus();
  if (upDown || sideways) {
    QKeyEvent move(QEvent::KeyPress, pressed, Qt::NoModifier);
    QTableView::keyPressEvent(&move);
  } else {
    GoToCellToFill(pressed != Qt::Key_Backtab);
  }
  return true;
}

void GridView::EditorLeft(QLineEdit& edit) {
  if (storing_) return;
  const QPointer<QLineEdit> alive(&edit);
  const bool stored = Store(edit);
  if (alive.isNull()) return;
  if (stored) {
    Close(edit);
    return;
  }
  // The person has gone on to something else; they are brought back to the text that was refused.
  QTimer::singleShot(0, &edit, [&edit] {
    edit.setFocus();
    edit.selectAll();
  });
}

void GridView::mousePressEvent(QMouseEvent* event) {
  // The keyboard has left the edit by now; one that is still open was refused and keeps the person in its
  // cell.
  if (state() != EditingState) QTableView::mousePressEvent(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
  const int key = event->key();
  if (ctrl && (key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
    QTableView::focusNextPrevChild(key == Qt::Key_Tab);
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    const QModelIndex current = currentIndex();
    if (HasCellsToFill()) {
      GoToCellToFill(true);
    } else if (grid_ != nullptr && current.isValid()) {
      grid_->UserDoubleClick(current.row() + 1, current.column());
    }
  } else if (key == Qt::Key_Delete) {
    DeletePressed(ctrl);
  } else if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(currentIndex().data(Qt::EditRole).toString());
  } else {
    QTableView::keyPressEvent(event);
  }
}

void GridView::DeletePressed(bool wholeRow) {
  const QModelIndex current = currentIndex();
  if (!HasCellsToFill() || !current.isValid()) return;
  if (wholeRow || !current.flags().testFlag(Qt::ItemIsEditable)) {
    DeleteRow();
  } else if (!current.data(Qt::EditRole).toString().isEmpty()) {
    grid_->UserEdit(current.row() + 1, current.column(), {});
  }
}

void GridView::DeleteRow() {
  if (grid_ != nullptr) grid_->UserDeleteRow();
}

void GridView::focusInEvent(QFocusEvent* event) {
  if (!currentIndex().isValid() && model_.rowCount() > 0) {
    const QModelIndex first = NextCellToFill(model_.index(0, 0), true);
    setCurrentIndex(first.isValid() ? first : model_.index(0, 0));
  }
  QTableView::focusInEvent(event);
}

bool GridView::focusNextPrevChild(bool next) {
  if (currentIndex().isValid() && GoToCellToFill(next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (!HasCellsToFill() || !currentIndex().isValid()) return;
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("rowMenu"));
  const QAction* const remove = menu.addAction(QStringLiteral("حذف سطر\tCtrl+Del"));
  if (menu.exec(event->globalPos()) == remove) DeleteRow();
}

}  // namespace koru
