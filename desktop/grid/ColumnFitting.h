#pragma once

#include <QObject>

#include "desktop/grid/ColumnArrangement.h"
#include "desktop/grid/GridColumns.h"

namespace koru {

class GridView;

/// Fits the widths of a GridView's columns to its viewport (FitColumns), their titles and a sample of the
/// rows in sight. A column that the user has resized keeps that width, and columns that the user has moved
/// keep their order, also when the grid gets new columns.
class ColumnFitting : public QObject {
  Q_OBJECT

 public:
  explicit ColumnFitting(GridView& view) : view_(view) {}

  /// The column that takes the remaining width; -1: none.
  void SetStretchColumn(int col) { stretch_ = col; }

  /// Fits the columns when control returns to the event loop; several calls fit them once.
  void FitLater();
  /// FitLater if a text of the row is wider than its column.
  void FitLaterUnlessFits(int row);

  /// The view or its viewport has another size. The room that a vertical scroll bar leaves when a filter
  /// hides lines remains free, so that no column moves.
  void ViewResized();

  /// What the user has changed so far.
  [[nodiscard]] const ColumnArrangement& Arranged() const { return arranged_; }
  /// Takes widths and order as if the user had made them; an empty arrangement is the usual one.
  void Arrange(ColumnArrangement arrangement);
  /// Fits a column that the user has resized.
  void FitColumn(int col);

  /// Shows or hides a column, which is no resizing by the user.
  void ShowColumn(int col, bool shown);
  /// The header has resized a column.
  void ColumnResized(int col, int width);
  /// The header has moved a column.
  void ColumnMoved();

 private:
  void FitNow();
  void ShowOrder();
  [[nodiscard]] bool Fits(int row) const;
  [[nodiscard]] int TextWidth(int row, int col) const;
  [[nodiscard]] ColumnSizeHint SizeHintOf(int col) const;

  GridView& view_;
  int stretch_ = -1;
  ColumnArrangement arranged_;
  bool fitting_ = false;  ///< the header reports changes that the user has not made
  bool requested_ = false;
  int fittedView_ = 0;      ///< the width of the view when the columns were fitted
  int fittedViewport_ = 0;  ///< and of its viewport
};

}  // namespace koru
