#pragma once

#include <QObject>

#include "desktop/grid/GridColumns.h"

namespace koru {

class GridView;

/// Fits the widths of a GridView's columns to its viewport (FitColumns), their titles and a sample of the
/// rows in sight. Once the user has resized a column, the widths are the user's.
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
  /// The header has resized a column.
  void ColumnResized();

 private:
  enum class Widths { Fitted, BeingFitted, SetByUser };

  void FitNow();
  [[nodiscard]] bool Fits(int row) const;
  [[nodiscard]] int TextWidth(int row, int col) const;
  [[nodiscard]] ColumnSizeHint SizeHintOf(int col) const;

  GridView& view_;
  int stretch_ = -1;
  Widths widths_ = Widths::Fitted;
  bool requested_ = false;
};

}  // namespace koru
