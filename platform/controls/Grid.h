#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/GridRow.h"

namespace koru {

enum class SortMode {
  GenericAscending,     ///< numbers as numbers and before texts, texts as texts
  TextNoCaseAscending,  ///< as texts, regardless of case
  GenericDescending,    ///< numbers from the largest, then texts from the last, then empty cells
  TextNoCaseDescending
};

/// The order that a user asks for in the menu of a title.
enum class RowOrder { Ascending, Descending, Entry };
struct SortRequest {
  int col = 0;
  RowOrder order = RowOrder::Ascending;
};

/// What changes in a grid's rows; rows are counted from 0, the header row included.
struct GridChange {
  enum class Kind {
    Columns,       ///< the number of columns; every cell is empty afterwards
    RowsInserted,  ///< rows first to last are new
    RowsRemoved,   ///< rows first to last, numbered as before the change, are removed
    RowTexts,      ///< the texts or the colour of row `first` (= last)
    AllTexts       ///< any texts, titles, colours, or the order of the rows; rows and columns remain
  };
  Kind kind = Kind::AllTexts;
  int first = 0;
  int last = 0;

  friend bool operator==(const GridChange&, const GridChange&) = default;
};

/// A grid of texts with a fixed header row 0. Rows and columns are counted from 0; an index outside the grid
/// throws std::out_of_range. A new grid has one row and no columns.
///
/// How a window follows the rows. Columns, RowsInserted and RowsRemoved are reported twice, by RowsChanging
/// before the change and by RowsChanged after it; RowTexts and AllTexts once, by RowsChanged. A window that
/// counts rows and columns by these reports alone can read every cell that it knows of at any time, between
/// the two reports as well: rows are removed only after RowsChanging, and new rows are appended after those
/// it knows. Each RowsChanging is followed by its RowsChanged before anything else is reported, also if a
/// listener throws; all listeners are then called, and the first exception reaches the caller of the
/// operation. A listener of RowsChanging must not change the grid.
///
/// While redraw is off (GridRedrawOff), new rows and texts are not reported. When it is switched on again,
/// the new rows are reported as one RowsInserted pair, and texts that changed in rows reported before as one
/// AllTexts; another current cell is reported then as well. Removed rows are reported at once, since a window
/// must not read them any more.
///
/// Each user action raises one event and respects the flags that the event's listeners set (SetEditAccepted,
/// SetDeleteAllowed).
class Grid : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int Cols() const { return cols_; }
  /// Removes the rows from index `rows` on, or appends empty ones.
  void SetRows(int rows);
  /// Sets the number of columns and empties every cell.
  void SetCols(int cols);

  /// Sets the titles in row 0, separated by "|"; "^" before a title centres its column. The length of a
  /// title, its blanks included, gives the column's width.
  void SetFormatString(std::string_view format);
  /// One character per column: "1" where cells can be edited.
  void SetEditMask(std::string mask) { editMask_ = std::move(mask); }
  [[nodiscard]] bool IsEditable(int col) const;
  /// While the grid is locked, the user can read, move and sort but not edit.
  void SetLocked(bool locked);
  [[nodiscard]] bool Locked() const { return locked_; }

  /// For hosts with a grid of their own: the desktop aligns a column by what it holds.
  [[nodiscard]] bool IsCentred(int col) const { return columns_.at(static_cast<std::size_t>(col)).centred; }
  /// Width of a column in twips (15 to a pixel at 96 dpi); 0 hides it.
  [[nodiscard]] int ColWidth(int col) const { return columns_.at(static_cast<std::size_t>(col)).width; }
  void SetColWidth(int col, int twips);

  /// The text of a cell; valid until its row changes.
  [[nodiscard]] std::string_view TextMatrix(int row, int col) const;
  /// A number that the row keeps wherever it moves, and that no other row of this grid ever has.
  [[nodiscard]] std::uint32_t RowID(int row) const { return ids_.at(static_cast<std::size_t>(row)); }
  void SetTextMatrix(int row, int col, std::string_view text);

  /// Appends a row whose column 0 holds `text`.
  void AddItem(std::string_view text);
  /// Appends a row of these texts, one per column.
  void AddRow(std::span<const std::string> texts);
  void RemoveItem(int row);

  /// The current cell.
  [[nodiscard]] int Row() const { return row_; }
  [[nodiscard]] int Col() const { return col_; }
  void SetCurrent(int row, int col);

  /// Sorts the rows below the header by one column; rows that compare equal keep their order. Background
  /// colours keep their places, so that stripes remain stripes. The current row stays current at its new
  /// place.
  void Sort(int col, SortMode mode);
  /// Brings back the order in which the rows were appended, or which KeepOrder has kept since.
  void SortByEntry();
  /// Shows the rows in another order: the row at index i becomes the one that has the index order[i]. The
  /// header stays first; the order of entry is not changed.
  void Arrange(const std::vector<std::size_t>& order);
  /// A number that grows with the place of the row in the order of entry.
  [[nodiscard]] std::uint32_t Entry(int row) const { return entries_.at(static_cast<std::size_t>(row)); }
  /// Makes the present order the order of entry.
  void KeepOrder();
  /// The column that the rows were last sorted by; -1 if they never were, or rows were added or removed
  /// since.
  [[nodiscard]] int SortedCol() const { return sortedCol_; }
  [[nodiscard]] bool IsSortedDescending() const { return sortedDescending_; }
  /// Marks the rows as sorted by that column without moving them: rows that come back as they were.
  void SetSorted(int col, bool descending);

  /// Background colours, 0x00BBGGRR.
  [[nodiscard]] std::uint32_t BackColor() const { return backColor_; }
  void SetBackColor(std::uint32_t color);
  /// The background of a row's cells from column 1 on.
  [[nodiscard]] std::uint32_t RowBackColor(int row) const {
    return colors_.at(static_cast<std::size_t>(row));
  }
  void SetRowBackColor(int row, std::uint32_t color);

  /// Switches the reports of new rows and texts off and on; see GridRedrawOff.
  void SetRedraw(bool redraw);

  // User actions.

  /// Enters `text` into a cell. ValidateEdit may change EditText or refuse it; an accepted text is stored and
  /// CellChanged raised. Returns false if the cell cannot be edited or the text was refused.
  bool UserEdit(int row, int col, std::string text);
  /// The same for a text that does not come from the user of this form but from elsewhere, at any moment: the
  /// current cell, the focus, EditText and an edit, a batch or a question about a row that is open remain as
  /// they are. During ValidateEdit and CellChanged, Row() and Col() are the edited cell. RowChange and
  /// CurrentChanged are not raised.
  bool UserEditElsewhere(int row, int col, std::string text);
  /// Deletes the current row. RowDeleting may refuse; otherwise the row is removed and RowDeleted raised.
  bool UserDeleteRow();
  /// Moves to another cell; raises RowChange first if the row is another.
  bool UserMoveTo(int row, int col);
  /// Moves the focus to another control.
  void UserLeave();
  bool UserClickHeader(int col);
  /// Asks for an order of the rows in the menu of a title.
  bool UserSort(const SortRequest& request);
  /// A single and a double click on a cell below the header; the cell becomes the current one.
  bool UserClick(int row, int col);
  bool UserDoubleClick(int row, int col);

  [[nodiscard]] const std::string& EditText() const { return editText_; }
  void SetEditText(std::string text) { editText_ = std::move(text); }
  void SetEditAccepted(bool accepted) { editAccepted_ = accepted; }
  /// Whether a BatchEdit exists: more cells may follow the edited one.
  [[nodiscard]] bool InBatchEdit() const { return inBatchEdit_; }
  /// Whether the text that listeners test or have accepted is not the user's (UserEditElsewhere).
  [[nodiscard]] bool InEditElsewhere() const { return inEditElsewhere_; }
  void SetDeleteAllowed(bool allowed) { deleteAllowed_ = allowed; }

  Event<const GridChange&> RowsChanging;
  Event<const GridChange&> RowsChanged;
  /// The current cell, Row() or Col(), is another.
  Event<> CurrentChanged;
  Event<> ValidateEdit;
  Event<> CellChanged;
  /// A BatchEdit has ended: what depends on all of its cells together can be calculated now.
  Event<> BatchEdited;
  Event<> RowDeleting;
  Event<> RowDeleted;
  Event<> RowChange;
  Event<> LeaveGrid;
  Event<int> HeaderClick;
  Event<const SortRequest&> SortWanted;
  Event<> Click;
  Event<> DblClick;

 private:
  friend class BatchEdit;
  class EditElsewhere;
  void EndBatchEdit();
  [[nodiscard]] bool AcceptsEdit(int row, int col) const;
  bool StoreEdit(std::string text);
  static constexpr std::uint32_t kWhite = 0x00FFFFFF;

  struct Column {
    bool centred = false;
    int width = 0;
  };

  [[nodiscard]] const GridRow& At(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  GridRow& At(int row) { return rows_.at(static_cast<std::size_t>(row)); }
  [[nodiscard]] bool IsDataCell(int row, int col) const;
  /// Moves `rows` to the end of the grid; they are reported once, or when redraw is switched on.
  void Append(std::span<GridRow> rows, std::uint32_t color);
  void Remove(int first, int last);
  template <class Change>
  void ChangeRows(const GridChange& reported, const Change& change);
  void ReportTexts(const GridChange& change);
  void ReportCurrent();
  void FollowOrder(const std::vector<std::size_t>& order);

  std::vector<Column> columns_;
  std::vector<GridRow> rows_ = std::vector<GridRow>(1);
  std::vector<std::uint32_t> colors_{kWhite};  ///< the background of each row
  std::vector<std::uint32_t> entries_{0};      ///< the place of each row in the order of entry
  std::uint32_t lastEntry_ = 0;
  std::vector<std::uint32_t> ids_{0};  ///< RowID of each row
  std::string editMask_;
  std::string editText_;
  int cols_ = 0;
  int row_ = 0;
  int col_ = 0;
  int sortedCol_ = -1;
  bool sortedDescending_ = false;
  std::uint32_t backColor_ = kWhite;
  bool locked_ = false;
  bool redraw_ = true;
  int reportedRows_ = 1;            ///< while redraw is off: the rows that windows know of
  bool textsUnreported_ = false;    ///< while redraw is off: their texts or colours have changed
  bool currentUnreported_ = false;  ///< while redraw is off: the current cell is another
  bool editAccepted_ = true;
  bool inBatchEdit_ = false;
  bool inEditElsewhere_ = false;
  bool deleteAllowed_ = true;
};

/// RAII: until destruction, a grid's new rows and texts are not reported.
class GridRedrawOff {
 public:
  explicit GridRedrawOff(Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  GridRedrawOff(const GridRedrawOff&) = delete;
  GridRedrawOff& operator=(const GridRedrawOff&) = delete;
  ~GridRedrawOff() { grid_.SetRedraw(true); }

 private:
  Grid& grid_;
};

/// RAII: the cells edited until destruction form one batch, such as a pasted column of figures.
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
