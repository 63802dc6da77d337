#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "platform/controls/Event.h"
#include "platform/controls/Grid.h"

namespace koru {

/// How the cells of a column are drawn. It does not affect the texts that are stored, edited or copied.
struct ColumnStyle {
  enum class Sign { None, Down, Up };

  bool number = false;     ///< left to right, so that a minus is on the left, and right-aligned
  bool grouped = false;    ///< a number is shown with a separator every three digits of its integer part
  Sign sign = Sign::None;  ///< a triangle at the left edge of each cell that is not empty
  bool hidden = false;     ///< the column is not shown
  bool concealed = false;  ///< nor has it any text for a view, or takes one; set by SetConcealed
  QColor color;            ///< of text and sign, as on a light desktop (OnDesktop); if invalid, the default
  /// A larger number is marked, with this tooltip.
  double maxUnmarked = std::numeric_limits<double>::infinity();
  QString markText = {};
};

/// A sign before the numbers of some rows.
struct RowSign {
  std::function<bool(const Grid& grid, int gridRow)> has;  ///< whether a row has it; empty: none has
  QString sign;
  QString meaning;  ///< the tooltip, and what a screen reader reads after the number
};

/// The Qt model of a Grid. Row 0 of the grid is the header. The model has the other rows, or those that a
/// filter shows (ShowOnly), in their order: GridRowOf and CellIndex convert. Texts are read from the grid
/// whenever a view asks for them. The model counts rows and columns by the grid's reports (RowsChanging,
/// RowsChanged), so that views are notified before and after each change.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// The grid whose rows are shown. It must outlive the model or be replaced by nullptr.
  void SetGrid(Grid* grid);
  [[nodiscard]] Grid* Source() const { return grid_; }
  void SetColumnStyle(int col, const ColumnStyle& style);
  void SetConcealed(int col, bool concealed);
  [[nodiscard]] ColumnStyle StyleOf(int col) const;
  /// The text to store if the user enters `text` in the column: a number column stores Latin digits without
  /// separators.
  [[nodiscard]] QString TextToStore(int col, const QString& text) const;
  /// Whether the cell holds a larger number than its column shows unmarked.
  [[nodiscard]] bool IsMarked(const QModelIndex& index) const;
  /// Whether views have been notified of a change of rows or columns that is not complete yet.
  [[nodiscard]] bool IsChanging() const { return changing_; }

  /// Shows these rows of the grid alone, in ascending order. Rows that are appended later are shown, too;
  /// rows whose texts change stay. After a sort the same places are shown, whatever rows they now have.
  void ShowOnly(std::vector<int> gridRows);
  void ShowAll();
  [[nodiscard]] bool IsFiltered() const { return isFiltered_; }
  /// Whether the rows are being reset by ShowOnly or ShowAll: no text has changed.
  [[nodiscard]] bool IsBeingFiltered() const { return isBeingFiltered_; }
  /// Shows the row also if the filter hides it.
  void Reveal(int gridRow);
  /// The row of the grid that a cell is in; 0 for an invalid index.
  [[nodiscard]] int GridRowOf(const QModelIndex& cell) const;
  /// The index of a cell of the grid; invalid for the header and for a row that is hidden or does not exist.
  [[nodiscard]] QModelIndex CellIndex(int gridRow, int col) const;

  void SetRowSign(RowSign sign) { rowSign_ = std::move(sign); }
  [[nodiscard]] const RowSign& SignOfRows() const { return rowSign_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void BeginChange(const GridChange& change);
  void EndChange(const GridChange& change);
  void TextsChanged(int first, int last);
  void ResetShown(bool isFiltered, std::vector<int> gridRows);
  void BeginRemoval(int first, int last);
  void EndRemoval(int first, int last);
  [[nodiscard]] int ShownBefore(int gridRow) const;
  [[nodiscard]] int GridRowAt(int row) const;
  [[nodiscard]] QVariant HeaderData(int col, int role) const;
  [[nodiscard]] QVariant RowNumberData(int gridRow, int role) const;
  [[nodiscard]] QVariant CellData(const QModelIndex& cell, int role) const;

  Grid* grid_ = nullptr;
  int rows_ = 0;  ///< of the grid, without its header
  int cols_ = 0;
  bool changing_ = false;
  bool isFiltered_ = false;
  bool isBeingFiltered_ = false;
  std::vector<int> shown_;     ///< if filtered: the rows of the grid that are shown, ascending
  bool removesShown_ = false;  ///< while rows are removed: some of them are shown
  RowSign rowSign_;
  std::vector<ColumnStyle> styles_;
  Subscription rowsChanging_;
  Subscription rowsChanged_;
};

}  // namespace koru
