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

#include "desktop/grid/GridView.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"

// How a GridView is walked through and typed into; GridView.cpp has how it is shown.

namespace koru {
namespace {

/// What was copied, as spreadsheets put it there: lines of texts.
std::vector<QStringList> Copied() {
  QString text = QApplication::clipboard()->text();
  text.remove(u'\r');
  if (text.isEmpty()) return {};  // nothing, or a picture
  if (text.endsWith(u'\n')) text.chop(1);
  std::vector<QStringList> lines;
  for (const QString& line : text.split(u'\n')) lines.push_back(line.split(u'\t'));
  return lines;
}

/// The hourglass while many cells are filled.
class Waiting {
 public:
  Waiting() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
  ~Waiting() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

bool GridView::LeavesGrid(const QKeyEvent& key) {
  const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
  return tab && key.modifiers().testFlag(Qt::ControlModifier);
}

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
  GoTo(next);
  return true;
}

void GridView::GoTo(const QModelIndex& cell) {
  setCurrentIndex(cell);
  scrollTo(currentIndex());  // rows may have gone on the way
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

QString GridView::TextTyped(int col, const QString& text) const {
  return model_.LookOf(col).number ? NumberTyped(text) : text;
}

/// True when the cell's edit is over: the text was stored, or nobody may type there any more.
bool GridView::Store(QLineEdit& edit) {
  if (grid_ == nullptr || !edited_.isValid() || !edited_.flags().testFlag(Qt::ItemIsEditable)) return true;
  const QString before = edited_.data(Qt::EditRole).toString();
  if (edit.text() == before) return true;
  const QScopedValueRollback<bool> storing(storing_, true);
  return grid_->UserEdit(edited_.row() + 1, edited_.column(),
                         FromQt(TextTyped(edited_.column(), edit.text())));
}

void GridView::Close(QLineEdit& edit) {
  edited_ = QPersistentModelIndex();
  closeEditor(&edit, QAbstractItemDelegate::NoHint);
}

QLineEdit* GridView::Editor() const {
  return qobject_cast<QLineEdit*>(edited_.isValid() ? indexWidget(edited_) : nullptr);
}

bool GridView::FinishEdit() {
  QLineEdit* const edit = Editor();
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
  if (key.matches(QKeySequence::Paste)) {
    const std::vector<QStringList> copied = Copied();
    const bool several = copied.size() > 1 || (!copied.empty() && copied.front().size() > 1);
    if (!several) return false;  // goes into the text that stands there
    const QModelIndex from = edited_;
    Close(edit);
    setFocus();
    Paste(from, copied);
    return true;
  }
  return MoveOutOfEdit(edit, key);
}

bool GridView::MoveOutOfEdit(QLineEdit& edit, const QKeyEvent& key) {
  const int pressed = key.key();
  const bool enter = pressed == Qt::Key_Return || pressed == Qt::Key_Enter;
  const bool next = enter || pressed == Qt::Key_Tab;
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
    MovePressed(move);
  } else if (LeavesGrid(key)) {
    QTableView::focusNextPrevChild(pressed == Qt::Key_Tab);
  } else if (enter && scanned_) {
    figureColumn_ = currentIndex().column();
    GoBackToScan();
  } else {
    GoToCellToFill(pressed != Qt::Key_Backtab);
  }
  return true;
}

void GridView::EditorLeft(QLineEdit& edit) {
  if (storing_) return;
  if (!hasFocus()) LeaveScanning();
  const QPointer<QLineEdit> alive(&edit);
  const bool stored = Store(edit);
  if (alive.isNull()) return;
  if (stored) {
    Close(edit);
    return;
  }
  // The person has gone on to something else; they are brought back to the text that was refused.
  QTimer::singleShot(0, &edit, [&edit] {
    if (!edit.isVisible()) return;  // the form has meanwhile stopped taking figures
    edit.setFocus();
    edit.selectAll();
  });
}

void GridView::mousePressEvent(QMouseEvent* event) {
  // The keyboard has left the edit by now; one that is still open was refused and keeps the person in its
  // cell.
  if (state() == EditingState) return;
  LeaveScanning();
  QTableView::mousePressEvent(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
  const int key = event->key();
  if (LeavesGrid(*event)) {
    QTableView::focusNextPrevChild(key == Qt::Key_Tab);
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    EnterPressed();
  } else if (key == Qt::Key_Delete) {
    DeletePressed(ctrl);
  } else if (event->matches(QKeySequence::Copy)) {
    if (currentIndex().isValid())
      QApplication::clipboard()->setText(currentIndex().data(Qt::EditRole).toString());
  } else if (event->matches(QKeySequence::Paste)) {
    Paste(currentIndex(), Copied());
  } else {
    MovePressed(*event);
  }
}

void GridView::EnterPressed() {
  const QModelIndex current = currentIndex();
  if (search_.Failed()) {
    search_.Forget();  // what was told of it stays on the screen: a scanner's Enter comes at once
  } else if (scanned_) {
    GoBackToScan();
  } else if (HasCellsToFill()) {
    if (!GoToScannedFigure()) GoToCellToFill(true);
  } else if (grid_ != nullptr && current.isValid()) {
    grid_->UserDoubleClick(current.row() + 1, current.column());
  }
}

void GridView::Paste(const QModelIndex& from, const std::vector<QStringList>& copied) {
  const Waiting hourglass;
  const BatchEdit block(*grid_);
  QPersistentModelIndex line(from);  // an empty row goes when the person leaves it
  for (const QStringList& texts : copied) {
    if (!line.isValid()) return;
    const QPersistentModelIndex below(model_.index(line.row() + 1, line.column()));
    if (!PasteLine(line, texts)) return;
    line = below;
  }
}

/// False when the form refused one of the texts.
bool GridView::PasteLine(const QPersistentModelIndex& from, const QStringList& texts) {
  int col = from.column();
  for (const QString& text : texts) {
    while (isColumnHidden(col)) ++col;
    const QModelIndex cell = model_.index(from.row(), col);
    if (!cell.isValid()) return true;
    const bool toFill = cell.flags().testFlag(Qt::ItemIsEditable);
    if (toFill && !grid_->UserEdit(cell.row() + 1, col, FromQt(TextTyped(col, text)))) return false;
    ++col;
  }
  return true;
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

void GridView::focusOutEvent(QFocusEvent* event) {
  const bool left = event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
  if (left && !storing_ && !isAncestorOf(QApplication::focusWidget())) LeaveScanning();
  QTableView::focusOutEvent(event);
}

bool GridView::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (LeavesGrid(key)) {  // it may be the window's key into the grid, too
      event->accept();
      return true;
    }
  }
  return QTableView::event(event);
}

bool GridView::focusNextPrevChild(bool next) {
  if (search_.Failed()) {  // some scanners end with a Tab
    search_.Forget();
    return true;
  }
  if (currentIndex().isValid() && GoToCellToFill(next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (!HasCellsToFill() || !currentIndex().isValid()) return;
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("rowMenu"));
  QAction* const remove = menu.addAction(QStringLiteral("حذف سطر\tCtrl+Del"));
  remove->setEnabled(grid_->Enabled() && !grid_->Locked());
  if (menu.exec(event->globalPos()) == remove) DeleteRow();
}

}  // namespace koru
