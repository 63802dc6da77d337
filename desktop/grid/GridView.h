#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

#include "desktop/grid/GridColumns.h"
#include "desktop/grid/GridModel.h"
#include "desktop/grid/GridSearch.h"

class QLineEdit;

namespace koru {

/// A Grid on the screen. Arrows move as in a spreadsheet and typing begins an edit; Enter and Tab store it
/// and go to the next cell to fill, Shift+Tab to the one before, Escape gives the old text back. A text that
/// the form refuses stays in its cell, selected. Delete empties a cell that can be typed into; elsewhere, and
/// with Ctrl everywhere, it asks for the line to go. Copying copies the cell; pasting fills cells downwards
/// and onwards, as far as texts were copied, and stops at one that the form refuses. In a grid without cells
/// to fill Enter is a double click. Ctrl+Tab leaves the grid.
///
/// Typing where cells are not typed into goes to the row that has the text in that column; a text that no row
/// has moves nothing, is told of, and the Enter behind it only ends it. Where rows are scanned in, Enter goes
/// from a row that was found to its figure and from the figure back, ready for the next row.
class GridView : public QTableView {
  Q_OBJECT

 public:
  explicit GridView(QWidget* parent = nullptr);

  /// The grid that is shown; it must outlive the view or be taken back with nullptr.
  void SetGrid(Grid* grid);
  void SetColumnStyle(int col, const ColumnStyle& look) { model_.SetColumnStyle(col, look); }
  /// The column that takes the room that the others leave; -1: none.
  void SetStretchColumn(int col) { stretch_ = col; }
  /// Column 0 counts the rows and is drawn as a part of the frame.
  void SetRowNumbers(bool rowNumbers) { rowNumbers_ = rowNumbers; }
  [[nodiscard]] bool HasRowNumbers() const { return rowNumbers_; }
  /// The column whose texts a scanner reads; -1: none.
  void SetScanColumn(int col) { scanColumn_ = col; }
  [[nodiscard]] const GridModel& Rows() const { return model_; }

  /// Stores what is being typed, if anything is; false when it was refused and stays in its cell.
  bool FinishEdit();
  /// Whether a cell's edit is open: it is being typed into, or what was typed was refused.
  [[nodiscard]] bool IsTypedInto() const { return Editor() != nullptr; }

  /// Whether a key takes the person out of the grid.
  [[nodiscard]] static bool LeavesGrid(const QKeyEvent& key);
  /// A key that was pressed in a cell's edit; true when it was the view's.
  bool EditorKey(QLineEdit& edit, const QKeyEvent& key);
  /// The keyboard has left a cell's edit.
  void EditorLeft(QLineEdit& edit);

  void keyboardSearch(const QString& keys) override;

 protected:
  bool event(QEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpHeaders();
  void SetUpMouse();
  void FollowGrid();
  void ShowCurrent();
  void ShowSortedColumn();
  void FitColumnsLater();
  void FitColumnsNow();
  [[nodiscard]] bool FitsColumns(int row) const;
  [[nodiscard]] int NeedOf(int row, int col) const;
  [[nodiscard]] ColumnSizeHint WishOf(int col) const;

  [[nodiscard]] bool HasCellsToFill() const;
  [[nodiscard]] QModelIndex NextCellToFill(const QModelIndex& from, bool forward) const;
  bool GoToCellToFill(bool forward);
  void GoTo(const QModelIndex& cell);
  void EnterPressed();
  bool GoToScannedFigure();
  void GoBackToScan();
  void LeaveScanning();
  void MovePressed(QKeyEvent& key);
  void TellNotFound();
  void TakeTellingBack();
  [[nodiscard]] QLineEdit* Editor() const;
  [[nodiscard]] QString TextTyped(int col, const QString& text) const;
  bool Store(QLineEdit& edit);
  void Close(QLineEdit& edit);
  bool MoveOutOfEdit(QLineEdit& edit, const QKeyEvent& key);
  void Paste(const QModelIndex& from, const std::vector<QStringList>& copied);
  bool PasteLine(const QPersistentModelIndex& from, const QStringList& texts);
  void DeletePressed(bool wholeRow);
  void DeleteRow();

  GridModel model_;
  GridSearch search_;
  Grid* grid_ = nullptr;
  Subscription gridChanged_;
  Subscription rowsChanged_;
  QPersistentModelIndex edited_;
  int stretch_ = -1;
  int scanColumn_ = -1;
  int figureColumn_ = -1;  ///< where the last figure of a scanned row was typed
  bool scanned_ = false;   ///< the keyboard is at the figure of a scanned row
  bool scanMoves_ = false;
  bool tells_ = false;  ///< that a text was not found stands on the screen
  bool rowNumbers_ = false;
  bool typing_ = false;   ///< the edit was begun by typing: arrows leave the cell
  bool storing_ = false;  ///< a message may take the keyboard away meanwhile
  bool ownWidths_ = false;
  bool fitting_ = false;
  bool fitWanted_ = false;
};

}  // namespace koru
