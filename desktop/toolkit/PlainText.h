#pragma once

#include <QString>
#include <QTextDocument>

namespace koru {

/// A tooltip that shows `text` letter by letter, also where the toolkit would take it for markup.
[[nodiscard]] inline QString PlainToolTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<span style='white-space:pre-wrap'>%1</span>").arg(text.toHtmlEscaped());
}

/// A caption of a button, a check box or a menu entry in which `&` is a letter and names no key.
[[nodiscard]] inline QString PlainCaption(QString text) {
  return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace koru
