#include "desktop/grid/GridHeader.h"

#include <QPainter>
#include <QPolygonF>
#include <QStyleOptionHeader>

namespace koru {
namespace {

constexpr int kTitleMargin = 3;
constexpr int kArrowStrip = 9;  ///< the height of the strip for the arrow
constexpr double kArrowWidth = 9;
constexpr double kArrowHeight = 5;

/// A triangle that points up for the ascending order.
void PaintArrow(QPainter& painter, const QRect& strip, bool ascending) {
  const QPointF middle = QRectF(strip).center();
  const double base = middle.y() + (ascending ? kArrowHeight : -kArrowHeight) / 2;
  const double tip = middle.y() - (ascending ? kArrowHeight : -kArrowHeight) / 2;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(QPolygonF(
      {{middle.x() - kArrowWidth / 2, base}, {middle.x() + kArrowWidth / 2, base}, {middle.x(), tip}}));
}

}  // namespace

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setFixedHeight(2 * fontMetrics().height() + 2 * kTitleMargin + kArrowStrip);
  setMinimumSectionSize(20);
  setHighlightSections(false);
  setSectionsClickable(true);
  setSectionsMovable(true);
  setSortIndicatorShown(true);
  setSortIndicator(-1, Qt::AscendingOrder);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  emit released();
}

void GridHeader::paintSection(QPainter* painter, const QRect& place, int col) const {
  if (place.isValid()) PaintTitle(*painter, place, col);
}

void GridHeader::PaintTitle(QPainter& painter, const QRect& place, int col) const {
  QStyleOptionHeaderV2 option;
  initStyleOption(&option);
  initStyleOptionForIndex(&option, col);
  option.rect = place;
  option.text.clear();
  option.sortIndicator = QStyleOptionHeader::None;
  painter.save();
  style()->drawControl(QStyle::CE_Header, &option, &painter, this);
  painter.restore();  // the style leaves a clip
  painter.save();
  const QVariant color = model()->headerData(col, orientation(), Qt::ForegroundRole);
  painter.setPen(color.isValid() ? color.value<QColor>() : option.palette.color(QPalette::ButtonText));
  QFont titleFont = font();
  titleFont.setBold(model()->headerData(col, orientation(), Qt::FontRole).value<QFont>().bold());
  painter.setFont(titleFont);
  painter.drawText(place.adjusted(kTitleMargin, kTitleMargin, -kTitleMargin, -kArrowStrip),
                   Qt::AlignCenter | Qt::TextWordWrap,
                   model()->headerData(col, orientation(), Qt::DisplayRole).toString());
  if (sortIndicatorSection() == col) {
    const QRect strip(place.left(), place.bottom() - kArrowStrip, place.width(), kArrowStrip);
    PaintArrow(painter, strip, sortIndicatorOrder() == Qt::AscendingOrder);
  }
  painter.restore();
}

}  // namespace koru
