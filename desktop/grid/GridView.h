#pragma once

#include <QTableView>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/grid/CellClipboard.h"
#include "desktop/grid/CellEditing.h"
#include "desktop/grid/CellTint.h"
#include "desktop/grid/ColumnFitting.h"
#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridMenus.h"
#include "desktop/grid/GridModel.h"
#include "desktop/grid/ScanMode.h"
#include "desktop/grid/TypingPace.h"

namespace koru {

class GridHeader;
class RowNumbers;

/// A Grid on the screen. Arrows move as in a spreadsheet, typing edits the current cell (CellEditing) or
/// searches a read-only column (ScanMode), Enter and Tab move to the next editable cell, Shift+Tab to the
/// previous one; Enter can be set to move elsewhere (EnterMoves). Delete clears an editable cell; elsewhere,
/// and with Ctrl everywhere, it deletes the row. In a grid with editable cells a rectangle can be selected,
/// with Shift or by dragging; Ctrl+C and Ctrl+V copy and paste cells (CellClipboard). In a grid without
/// editable cells Enter is a double click. Ctrl+Tab leaves the grid. Keys follow the order in which the
/// columns are shown; wherever a column has a number, it is that of the grid.
class GridView : public QTableView {
  Q_OBJECT

 public:
  explicit GridView(QWidget* parent = nullptr);
  GridView(const GridView&) = delete;
  GridView& operator=(const GridView&) = delete;
  ~GridView() override;

  /// The grid to show. It must outlive the view or be replaced by nullptr.
  void SetGrid(Grid* grid);
  void SetColumnStyle(int col, const ColumnStyle& style) { model_.SetColumnStyle(col, style); }
  /// Hides a column and gives its texts to nobody: no key, scan, paste, copy or tooltip reaches it.
  void SetConcealed(int col, bool concealed);
  /// The column that takes the remaining width; -1: none.
  void SetStretchColumn(int col) { fitting_.SetStretchColumn(col); }
  /// Whether column 0 numbers the rows and is shown as a part of the frame, which does not scroll away.
  void SetRowNumbers(bool rowNumbers);
  [[nodiscard]] RowNumbers* Numbers() const { return rowNumbers_.get(); }
  /// The first column among the cells.
  [[nodiscard]] int FirstColumn() const { return rowNumbers_ == nullptr ? 0 : 1; }
  /// The column whose texts are scanned; -1: none.
  void SetScanColumn(int col) { scanning_.SetScanColumn(col); }
  /// Shows these rows of the grid alone, or all of them (GridModel::ShowOnly), and the current row if it is
  /// one of them. A cell editor must not be open (FinishEdit).
  void ShowOnly(std::vector<int> gridRows);
  void ShowAll();
  /// A sign before the numbers of some rows.
  void SetRowSign(RowSign sign);
  /// Where Enter moves; by default to the next editable cell.
  void SetEnterMoves(const EnterMoves& moves) { enterMoves_ = moves; }
  [[nodiscard]] const EnterMoves& MovesOfEnter() const { return enterMoves_; }
  /// What is shown where a character is typed into an editable column while the grid is locked: a sentence
  /// that names the way to unlock it. Without one, such typing searches the column.
  void SetLockedHint(std::function<QString()> hint) { lockedHint_ = std::move(hint); }
  /// The columns that the figures of scanned rows are entered into.
  void SetFigureColumns(int first, int last) { scanning_.SetFigureColumns(first, last); }

  /// Stores the text of the open cell editor, if any. Returns false if the form refused it; the editor stays
  /// open then.
  bool FinishEdit() { return editing_.Finish(); }
  /// Whether a cell editor is open: a text is being typed, or was refused.
  [[nodiscard]] bool IsTypedInto() const { return editing_.CurrentState() != CellEditing::State::Closed; }

  [[nodiscard]] const GridModel& Rows() const { return model_; }
  [[nodiscard]] ScanMode& Scanning() { return scanning_; }
  [[nodiscard]] const ScanMode& Scanning() const { return scanning_; }
  [[nodiscard]] CellEditing& Editing() { return editing_; }
  [[nodiscard]] TypingPace& Pace() { return pace_; }
  [[nodiscard]] const CellClipboard& Clipboard() const { return clipboard_; }
  [[nodiscard]] CellTint& Tint() { return tint_; }
  [[nodiscard]] ColumnFitting& Fitting() { return fitting_; }
  [[nodiscard]] GridMenus& Menus() { return menus_; }
  [[nodiscard]] const GridHeader& Titles() const { return *titles_; }

  /// A click on the title of a column, which sorts.
  void ClickTitle(int col);
  /// A choice in the menu of a title or a line.
  void SortByUser(const SortRequest& request);
  /// Fits the column, unlike the width that the user gave it.
  void FitColumn(int col);
  /// Gives the columns the widths and the order that the user gave them earlier.
  void Arrange(const ColumnArrangement& arrangement);
  /// Fits all columns and shows them in the order of the grid.
  void ArrangeAsUsual();
  /// Asks the form to delete the current row. The shown row that takes its place is current then.
  void DeleteRow();
  /// Sets the width of the row numbers, in pixels.
  void SetFrameWidth(int width);

  /// Moves the current cell as an arrow key does (Qt::Key_Left, ...).
  void MoveByKey(int key);
  /// Moves the focus to the next or previous widget of the window.
  void FocusOutside(bool next) { QTableView::focusNextPrevChild(next); }
  using QTableView::closeEditor;

  void keyboardSearch(const QString& keys) override { scanning_.TypeKeys(keys); }

  /// Whether the current cell takes a number, so that letters are refused.
  [[nodiscard]] bool TakesNumber(const QModelIndex& cell) const;
  /// Shows a hint at the current cell about a character that no number has.
  void RefuseLetter();

 signals:
  /// A scan or a search has found no row, or a key or a text was refused.
  void refused();
  /// A barcode was scanned, or typed into the scan column, that no row has.
  void unknownScan(const QString& barcode);
  /// The user has changed widths or the order of columns: Fitting().Arranged().
  void columnsArranged();
  /// What a command on several cells did, in a sentence for the user.
  void reported(const QString& sentence);

 protected:
  bool event(QEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const override;
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
  void FollowRows(const GridChange& change);
  void ShowCurrent();
  void AfterFilter();
  void GoToFirstCell();
  [[nodiscard]] QModelIndex RevealScanned(const QString& scanned);
  [[nodiscard]] int ShownCol() const;
  void ShowSortedColumn();
  void ReportOrder();
  void Rearranged();
  void UpdateRow(int row);
  void EnterPressed();
  [[nodiscard]] bool IsLockedForTyping() const;
  bool TakeScan();
  void DeletePressed(bool wholeRow);

  GridModel model_;
  TypingPace pace_;
  ScanMode scanning_{*this, [this] { emit refused(); }};
  CellEditing editing_{*this};
  ColumnFitting fitting_{*this};
  CellClipboard clipboard_{*this};
  CellTint tint_{*this};
  GridMenus menus_{*this};
  GridHeader* titles_ = nullptr;
  ColumnArrangement reported_;  ///< the arrangement that columnsArranged has reported
  std::unique_ptr<RowNumbers> rowNumbers_;
  Grid* grid_ = nullptr;
  Subscription stateChanged_;
  Subscription rowsChanged_;
  Subscription currentChanged_;
  std::function<QString()> lockedHint_;
  EnterMoves enterMoves_;
  bool deletes_ = false;  ///< a row is being deleted, and another one becomes current
};

}  // namespace koru
