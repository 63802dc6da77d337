#include "desktop/grid/CellHint.h"

#include <QTableView>
#include <QToolTip>

namespace koru {
namespace {

constexpr int kTipMargins = 18;

}  // namespace

void ShowCellHint(QTableView& view, const QModelIndex& cell, const QString& text) {
  // Aligned with the right edge of the cell, so that the hint does not extend beyond the window.
  const int width = QFontMetrics(QToolTip::font()).horizontalAdvance(text) + kTipMargins;
  const QPoint corner = view.visualRect(cell).bottomRight() - QPoint(width, 0);
  QToolTip::showText(view.viewport()->mapToGlobal(corner),
                     QStringLiteral("<p dir='rtl' style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()),
                     &view);
}

}  // namespace koru
