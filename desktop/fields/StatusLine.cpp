#include "desktop/fields/StatusLine.h"

#include <QFontMetrics>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/PlainText.h"

namespace koru {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("statusLine"));
  setProperty("hint", true);
  setTextFormat(Qt::PlainText);
}

void StatusLine::Say(const QString& sentence) {
  if (sentence_ == sentence) return;
  sentence_ = sentence;
  updateGeometry();
  ShowAsMuchAsFits();
}

QSize StatusLine::sizeHint() const {
  return {fontMetrics().horizontalAdvance(RightToLeft(sentence_)) + 2, fontMetrics().height()};
}

QSize StatusLine::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void StatusLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  ShowAsMuchAsFits();
}

void StatusLine::ShowAsMuchAsFits() {
  const QString all = RightToLeft(sentence_);
  const QString shown = fontMetrics().elidedText(all, Qt::ElideRight, width());
  setText(shown);
  setToolTip(shown == all ? QString() : PlainToolTip(sentence_));
}

}  // namespace koru
