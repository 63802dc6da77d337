#pragma once

#include <QPoint>

class QMenu;

namespace koru {

class GridView;

/// The context menus of a GridView: of a title, and of the current line.
class GridMenus {
 public:
  explicit GridMenus(GridView& view) : view_(view) {}

  /// Shows the ways of sorting by the column, if the grid has cells to fill, and those of fitting columns.
  /// `at`: on the screen.
  void ShowForTitle(int col, QPoint at);
  /// Shows copying; where cells can be edited, also pasting, deleting and sorting.
  void ShowForRow(QPoint at);

 private:
  void AddSorting(QMenu& menu, int col);
  void AddFitting(QMenu& menu, int col);

  GridView& view_;
};

}  // namespace koru
