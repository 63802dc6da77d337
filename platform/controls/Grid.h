#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/GridRow.h"

namespace koru {

enum class SortMode {
  GenericAscending,    ///< numbers as numbers and before texts, texts as texts
  TextNoCaseAscending  ///< as texts, regardless of case
};

/// What changed in a grid's rows; rows are counted from 0, the header row included.
struct GridChange {
  enum class Kind {
    Everything,    ///< columns, header or any number of rows
    RowsInserted,  ///< rows first to last are new
    RowsRemoved,   ///< rows first to last, as they were counted before, are gone
    RowTexts       ///< texts or colour of row `first` (= last)
  };
  Kind kind = Kind::Everything;
  int first = 0;
  int last = 0;
};

/// A grid of texts with a fixed header row 0. Rows and columns are counted from 0; an index outside the grid
/// throws std::out_of_range. A new grid has one row and no columns.
///
/// The person's actions: each raises one event and obeys the flags that the event's listeners leave behind
/// (SetEditAccepted, SetDeleteAllowed).
class Grid : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int Cols() const { return cols_; }
  /// Cuts the rows behind `rows` off, or appends empty ones.
  void SetRows(int rows);
  /// Sets the number of columns and empties every cell.
  void SetCols(int cols);

  /// The titles of row 0, one a column, separated by "|"; "^" before a title centres its column. The blanks
  /// in a title are kept and give the column's width.
  void SetFormatString(std::string_view format);
  /// One character a column: "1" where the person may type.
  void SetEditMask(std::string mask) { editMask_ = std::move(mask); }
  [[nodiscard]] bool IsEditable(int col) const;
  /// The person may look, move and sort, and not type.
  void SetLocked(bool locked);
  [[nodiscard]] bool Locked() const { return locked_; }

  [[nodiscard]] bool IsCentred(int col) const { return columns_.at(static_cast<std::size_t>(col)).centred; }
  /// Width of a column in twips (15 to a pixel at 96 dpi); 0 hides it.
  [[nodiscard]] int ColWidth(int col) const { return columns_.at(static_cast<std::size_t>(col)).width; }
  void SetColWidth(int col, int twips);

  /// The text of a cell; valid until its row changes.
  [[nodiscard]] std::string_view TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, std::string_view text);

  /// Appends a row whose column 0 holds `text`.
  void AddItem(std::string_view text);
  /// Appends a row of these texts, one a column.
  void AddRow(std::span<const std::string> texts);
  void RemoveItem(int row);

  /// The current cell.
  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return col_; }
  void SetCurrent(int row, int col);

  /// Orders the rows behind the header by one column; rows that compare equal keep their order. Background
  /// colours stay where they are, so that stripes remain stripes.
  void Sort(int col, SortMode mode);
  /// The column that the rows were last sorted by; -1 when rows came or went since, or never.
  [[nodiscard]] int SortedCol() const { return sortedCol_; }

  /// Background colours, 0x00BBGGRR.
  [[nodiscard]] std::uint32_t BackColor() const { return backColor_; }
  void SetBackColor(std::uint32_t color);
  /// The background of a row's cells from column 1 on.
  [[nodiscard]] std::uint32_t RowBackColor(int row) const {
    return colors_.at(static_cast<std::size_t>(row));
  }
  void SetRowBackColor(int row, std::uint32_t color);

  /// While off, changes of rows are kept back; switching it on again reports one change of everything.
  void SetRedraw(bool redraw);

  // What a person does.

  /// Types `text` over a cell. ValidateEdit may change EditText or refuse it; an accepted text is stored and
  /// CellChanged raised. False when the cell cannot be typed into or the text was refused.
  bool UserEdit(int row, int col, std::string text);
  /// Asks for the current row to go. RowDeleting may refuse; otherwise the row goes and RowDeleted is raised.
  bool UserDeleteRow();
  /// Moves to another cell; RowChange is raised first when that leaves the current row.
  bool UserMoveTo(int row, int col);
  /// Leaves the grid for another control.
  void UserLeave();
  bool UserClickHeader(int col);
  /// A single and a double click on a cell of a data row, which becomes the current one; row 0 is the header.
  bool UserClick(int row, int col);
  bool UserDoubleClick(int row, int col);

  [[nodiscard]] const std::string& EditText() const { return editText_; }
  void SetEditText(std::string text) { editText_ = std::move(text); }
  void SetEditAccepted(bool accepted) { editAccepted_ = accepted; }
  /// Whether more cells of a block follow the one that was edited, or may follow.
  [[nodiscard]] bool InBatchEdit() const { return inBatchEdit_; }
  void SetDeleteAllowed(bool allowed) { deleteAllowed_ = allowed; }

  Event<const GridChange&> RowsChanged;
  Event<> ValidateEdit;
  Event<> CellChanged;
  /// A block of cells that a person filled at once is finished; what follows from all of its cells together,
  /// and not from each, has waited for this.
  Event<> BatchEdited;
  Event<> RowDeleting;
  Event<> RowDeleted;
  Event<> RowChange;
  Event<> LeaveGrid;
  Event<int> HeaderClick;
  Event<> Click;
  Event<> DblClick;

 private:
  friend class BatchEdit;
  void EndBatchEdit();
  static constexpr std::uint32_t kWhite = 0x00FFFFFF;

  struct Column {
    bool centred = false;
    int width = 0;
  };

  [[nodiscard]] const GridRow& At(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  GridRow& At(int row) { return rows_.at(static_cast<std::size_t>(row)); }
  [[nodiscard]] bool IsDataCell(int row, int col) const;
  void Append(GridRow row);
  void Report(GridChange change);
  void RowsCameOrWent(GridChange change);

  std::vector<Column> columns_;
  std::vector<GridRow> rows_ = std::vector<GridRow>(1);
  std::vector<std::uint32_t> colors_{kWhite};  ///< the background of each row
  std::string editMask_;
  std::string editText_;
  int cols_ = 0;
  int row_ = 0;
  int col_ = 0;
  int sortedCol_ = -1;
  std::uint32_t backColor_ = kWhite;
  bool locked_ = false;
  bool redraw_ = true;
  bool editAccepted_ = true;
  bool inBatchEdit_ = false;
  bool deleteAllowed_ = true;
};

/// Keeps a grid's changes back for as long as it lives.
class GridRedrawOff {
 public:
  explicit GridRedrawOff(Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  GridRedrawOff(const GridRedrawOff&) = delete;
  GridRedrawOff& operator=(const GridRedrawOff&) = delete;
  ~GridRedrawOff() { grid_.SetRedraw(true); }

 private:
  Grid& grid_;
};

/// The cells that a person edits while it lives are one block, as a column of figures that is pasted.
class BatchEdit {
 public:
  explicit BatchEdit(Grid& grid) : grid_(grid) { grid_.inBatchEdit_ = true; }
  BatchEdit(const BatchEdit&) = delete;
  BatchEdit& operator=(const BatchEdit&) = delete;
  ~BatchEdit() { grid_.EndBatchEdit(); }

 private:
  Grid& grid_;
};

}  // namespace koru
