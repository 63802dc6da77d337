#include "desktop/toolkit/ShownNumber.h"

#include <QPainter>
#include <QStyleOptionFrame>

#include "desktop/toolkit/QtText.h"
#include "platform/text/DigitGroups.h"

namespace koru {

QString GroupedNumber(const QString& text) { return ToQt(WithGroups(FromQt(text))); }

AmountEdit::AmountEdit(QWidget* parent) : QLineEdit(parent) {
  setLayoutDirection(Qt::LeftToRight);
  setAlignment(Qt::AlignRight);
}

void AmountEdit::paintEvent(QPaintEvent* event) {
  if (hasFocus()) {
    QLineEdit::paintEvent(event);
    return;
  }
  QStyleOptionFrame frame;
  initStyleOption(&frame);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
  const QRect inside =
      style()->subElementRect(QStyle::SE_LineEditContents, &frame, this).adjusted(2, 0, -2, 0);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, GroupedNumber(text()));
}

}  // namespace koru
