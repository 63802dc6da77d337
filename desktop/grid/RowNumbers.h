#pragma once

#include <QModelIndex>
#include <QObject>

class QAbstractButton;

namespace koru {

class GridView;

/// Column 0 of a GridView as a frame of row numbers that does not scroll away: the vertical header shows its
/// texts, the corner above it shows its title and takes the clicks on it. The column itself is hidden. In a
/// grid with cells to fill, a click on a number selects its line, with Shift or by dragging several lines;
/// the current cell stays in its column.
class RowNumbers : public QObject {
  Q_OBJECT

 public:
  explicit RowNumbers(GridView& view);

  /// Makes room for the title and the largest number.
  void Fit();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void GoToRow(int row);
  /// The texts of these rows have changed.
  void Repaint(const QModelIndex& first, const QModelIndex& last);
  void SelectLines(int first, int last);
  [[nodiscard]] bool IsSelected(int row) const;

  GridView& view_;
  QAbstractButton* corner_;
  int anchor_ = 0;  ///< the row where the selection of lines begins
};

}  // namespace koru
