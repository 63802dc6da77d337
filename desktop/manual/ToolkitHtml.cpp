#include "desktop/manual/ToolkitHtml.h"

#include <QRegularExpression>

namespace koru {

QString ToolkitHtml(QString html) {
  static const QRegularExpression heading(QStringLiteral("(<h2 id=\"[^\"]*\">)"));
  html.replace(heading, QStringLiteral("\\1\u200F"));
  for (const char* const element : {"kbd", "code"}) {
    const QString name = QLatin1String(element);
    html.replace(QStringLiteral("<%1>").arg(name), QStringLiteral("\u200F<%1>\u200E").arg(name));
    html.replace(QStringLiteral("</%1>").arg(name), QStringLiteral("\u200E</%1>\u200F").arg(name));
  }
  static const QRegularExpression row(QStringLiteral("<tr>(.*?)</tr>"),
                                      QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression cell(QStringLiteral("<t([dh])[ >].*?</t\\1>"),
                                       QRegularExpression::DotMatchesEverythingOption);
  QString mirrored;
  qsizetype end = 0;
  for (const QRegularExpressionMatch& found : row.globalMatch(html)) {
    mirrored += html.mid(end, found.capturedStart(1) - end);
    QString cells;
    for (const QRegularExpressionMatch& one : cell.globalMatch(found.captured(1)))
      cells.prepend(one.captured());
    mirrored += cells;
    end = found.capturedEnd(1);
  }
  return mirrored + html.mid(end);
}

}  // namespace koru
