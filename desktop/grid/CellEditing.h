#pragma once

#include <QAbstractItemView>
#include <QPersistentModelIndex>

class QKeyEvent;
class QLineEdit;

namespace koru {

class GridView;

/// Editing one cell of a GridView in place. Enter and Tab store the text and move to the next editable cell,
/// Shift+Tab to the previous one; Up and Down store it and move to another row, and so does each key that
/// moves in a grid and that the editor does not use, such as PageDown and Ctrl+End; Escape restores the old
/// text. A text that the form refuses stays in its cell, selected, and so does the focus. A number cell takes
/// no letters, and refuses a text that is no number (TypedNumber.h).
///
/// A barcode that a scanner sends into the cell (TypingPace) is not stored: what was typed before it is, and
/// the barcode is scanned (ScanMode::Scanned).
class CellEditing {
 public:
  enum class State {
    Closed,  ///< no editor is open
    Typed,   ///< typing opened the editor: Left and Right store the text and leave the cell
    Opened   ///< F2 or a double click opened it: Left and Right move in the text
  };

  explicit CellEditing(GridView& view) : view_(view) {}

  [[nodiscard]] State CurrentState() const;
  /// Whether the open editor holds what the user has typed, and not the text of its cell, which it follows.
  [[nodiscard]] bool HoldsTyped() const;
  /// The view has opened an editor in `cell`.
  void Begin(const QModelIndex& cell, QAbstractItemView::EditTrigger trigger);
  /// Stores the text of the open editor, if any, and closes it. Returns false if the form refused the text.
  bool Finish();
  /// Closes the editor if its cell can no longer be edited.
  void CloseIfReadOnly();
  /// Whether a text is being stored; a message may take the focus from the editor meanwhile.
  [[nodiscard]] bool IsStoring() const { return storing_; }

  /// Handles a key press in the editor. Returns false if the key belongs to the editor.
  bool KeyPressed(QLineEdit& editor, const QKeyEvent& key);
  /// The focus has left the editor.
  void FocusLeft(QLineEdit& editor);

 private:
  [[nodiscard]] QLineEdit* Editor() const;
  bool Store(QLineEdit& editor);
  void Close(QLineEdit& editor);
  bool MoveOut(QLineEdit& editor, const QKeyEvent& key);
  [[nodiscard]] bool HoldsScan() const;
  QString RemoveScan(QLineEdit& editor);
  void TakeScan(QLineEdit& editor, const QKeyEvent& key);
  bool AddCharacter(QLineEdit& editor, const QKeyEvent& key);
  bool RefuseIfNoNumber(const QLineEdit& editor);

  GridView& view_;
  QPersistentModelIndex cell_;
  State openedBy_ = State::Opened;
  bool storing_ = false;
};

}  // namespace koru
