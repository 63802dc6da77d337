#pragma once

#include <QHeaderView>

namespace koru {

/// The titles of a GridView, each in at most two lines. The arrow of the sorted column has a strip of its own
/// below all titles, so that it covers no title and needs no width. The user can resize and move the columns.
class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit GridHeader(QWidget* parent);

  /// Paints the title of a column with its arrow, also that of a hidden column in another place.
  void PaintTitle(QPainter& painter, const QRect& place, int col) const;

 signals:
  /// The user has released the mouse, after a click, or after a column was resized or moved.
  void released();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintSection(QPainter* painter, const QRect& place, int col) const override;
};

}  // namespace koru
