#include "desktop/grid/CellEditing.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTimer>
#include <memory>
#include <optional>

#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

void ReturnTo(QLineEdit& editor) {
  editor.setFocus();
  editor.selectAll();
}

bool IsEnter(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

/// What the user has typed into the editor; nothing if the next character is the first.
std::optional<QString> TypedText(const QLineEdit& editor) {
  if (!editor.isModified() || editor.selectedText() == editor.text()) return std::nullopt;
  return editor.text();
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

bool CellEditing::HoldsTyped() const {
  const QLineEdit* const editor = Editor();
  return editor != nullptr && editor->isModified();
}

/// Returns true if the edit is over: the text was stored, or the cell can no longer be edited.
bool CellEditing::Store(QLineEdit& editor) {
  const GridModel& rows = view_.Rows();
  if (rows.Source() == nullptr || !cell_.isValid() || !cell_.flags().testFlag(Qt::ItemIsEditable))
    return true;
  if (HoldsScan()) {
    const QString barcode = RemoveScan(editor);
    ShowCellHint(view_, cell_, QStringLiteral("باركد «\u2068%1\u2069» در اين خانه ثبت نشد.").arg(barcode));
    emit view_.refused();
  }
  if (editor.text() == cell_.data(Qt::EditRole).toString()) return true;
  if (RefuseIfNoNumber(editor)) return false;
  const QScopedValueRollback<bool> storing(storing_, true);
  return rows.Source()->UserEdit(rows.GridRowOf(cell_), cell_.column(),
                                 FromQt(rows.TextToStore(cell_.column(), editor.text())));
}

void CellEditing::Close(QLineEdit& editor) {
  cell_ = QPersistentModelIndex();
  view_.Pace().Forget();
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
  if (IsModifierKey(key)) return false;
  if (key.key() == Qt::Key_Escape) {
    Close(editor);
    return true;
  }
  if (HoldsScan() && !(TypesCharacter(key) && view_.Pace().IsContinuedBy(key))) {
    TakeScan(editor, key);
    return true;
  }
  if (TypesCharacter(key)) return !AddCharacter(editor, key);
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

/// Returns false if the character is refused.
bool CellEditing::AddCharacter(QLineEdit& editor, const QKeyEvent& key) {
  view_.Pace().Add(key, TypedText(editor));
  if (!view_.TakesNumber(cell_) || IsNumberKey(key)) return true;
  view_.RefuseLetter();
  return false;
}

/// Whether a scanner has sent a barcode into the editor.
bool CellEditing::HoldsScan() const { return view_.Scanning().HasScanColumn() && view_.Pace().IsBarcode(); }

/// Takes the barcode out of the editor and returns it.
QString CellEditing::RemoveScan(QLineEdit& editor) {
  QString barcode = view_.Pace().Text();
  const auto typed = view_.Pace().Before();
  editor.setText(typed.value_or(cell_.data(Qt::EditRole).toString()));
  editor.setModified(typed.has_value());
  view_.Pace().Forget();
  return barcode;
}

/// `key` is the first one that does not belong to the barcode in the editor.
void CellEditing::TakeScan(QLineEdit& editor, const QKeyEvent& key) {
  const bool figureTyped = view_.Pace().Before().has_value();
  const QString barcode = RemoveScan(editor);
  if (!Finish()) return;
  view_.setFocus();
  if (figureTyped) view_.Scanning().FigureLeftByScan();
  view_.Scanning().Scanned(barcode);
  if (IsEnter(key) || key.key() == Qt::Key_Tab) return;  // the scanner's own
  const std::unique_ptr<QKeyEvent> again(key.clone());
  QCoreApplication::sendEvent(&view_, again.get());
}

bool CellEditing::RefuseIfNoNumber(const QLineEdit& editor) {
  const QString text = editor.text();
  if (!view_.TakesNumber(cell_) || text.trimmed().isEmpty() || IsTypedNumber(FromQt(text))) return false;
  ShowCellHint(view_, cell_, QStringLiteral("«\u2068%1\u2069» عدد نيست.").arg(text));
  emit view_.refused();
  return true;
}

bool CellEditing::MoveOut(QLineEdit& editor, const QKeyEvent& key) {
  const int pressed = key.key();
  const bool enter = IsEnter(key);
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
  } else if (tab) {
    GoToCellToFill(view_, pressed != Qt::Key_Backtab);
  } else if (!view_.Scanning().FigureStored()) {
    GoByEnter(view_, view_.MovesOfEnter());
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
