#include "desktop/toolkit/ShownNumber.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace koru {

QString GroupedNumber(const QString& text) {
  qsizetype wholeEnd = text.indexOf(u'.');
  if (wholeEnd < 0) wholeEnd = text.size();
  const qsizetype wholeBegin = text.startsWith(u'-') ? 1 : 0;
  for (qsizetype i = wholeBegin; i < wholeEnd; ++i) {
    if (text.at(i) < u'0' || text.at(i) > u'9') return text;
  }
  QString shown = text;
  for (qsizetype at = wholeEnd - 3; at > wholeBegin; at -= 3) shown.insert(at, u',');
  return shown;
}

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
