#include "desktop/grid/TabbedText.h"

namespace koru {
namespace {

/// Reads the quoted cell that begins at `at`, and moves `at` to what follows it. Returns false if no quote
/// closes it.
bool ReadQuoted(const QString& text, qsizetype& at, QString& cell) {
  QString read;
  for (qsizetype next = at + 1; next < text.size(); ++next) {
    if (text[next] != u'"') {
      read += text[next];
    } else if (next + 1 < text.size() && text[next + 1] == u'"') {
      read += text[next++];
    } else {
      const bool ends = next + 1 == text.size() || text[next + 1] == u'\t' || text[next + 1] == u'\n';
      if (!ends) return false;
      cell = read;
      at = next + 1;
      return true;
    }
  }
  return false;
}

QString Quoted(const QString& cell) {
  const bool needsQuotes = cell.contains(u'\t') || cell.contains(u'\n') || cell.startsWith(u'"');
  if (!needsQuotes) return cell;
  return u'"' + QString(cell).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

}  // namespace

std::vector<QStringList> CellsOf(const QString& tabbed) {
  QString text = tabbed;
  text.remove(u'\r');
  if (text.endsWith(u'\n')) text.chop(1);
  if (tabbed.isEmpty()) return {};
  std::vector<QStringList> rows(1);
  for (qsizetype at = 0;; ++at) {
    QString cell;
    const bool isQuoted = at < text.size() && text[at] == u'"' && ReadQuoted(text, at, cell);
    if (!isQuoted) {
      const qsizetype begin = at;
      while (at < text.size() && text[at] != u'\t' && text[at] != u'\n') ++at;
      cell = text.mid(begin, at - begin);
    }
    rows.back() += cell;
    if (at >= text.size()) return rows;
    if (text[at] == u'\n') rows.emplace_back();
  }
}

QString TabbedText(const std::vector<QStringList>& rows) {
  QString text;
  for (const QStringList& row : rows) {
    for (qsizetype i = 0; i < row.size(); ++i)
      text += (i == 0 ? QString() : QStringLiteral("\t")) + Quoted(row[i]);
    text += u'\n';
  }
  return text;
}

}  // namespace koru
