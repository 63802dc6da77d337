#include "desktop/grid/GridColumns.h"

#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <limits>
#include <numeric>

namespace koru {

std::vector<int> FitColumns(const std::vector<ColumnSizeHint>& hints, int available, int stretch) {
  std::vector<int> widths;
  widths.reserve(hints.size());
  for (const ColumnSizeHint& hint : hints) widths.push_back(hint.natural == 0 ? 0 : hint.least);
  int room = std::max(0, available - std::accumulate(widths.begin(), widths.end(), 0));
  const auto stretched = static_cast<std::size_t>(stretch);
  const bool stretches = stretch >= 0 && stretched < hints.size() && hints[stretched].natural > 0;
  if (stretches) {
    const int more = std::min(room, std::max(0, hints[stretched].natural - widths[stretched]));
    widths[stretched] += more;
    room -= more;
  }
  std::vector<int> wanted(hints.size(), 0);
  for (std::size_t i = 0; i < hints.size(); ++i) wanted[i] = std::max(0, hints[i].natural - widths[i]);
  const int all = std::accumulate(wanted.begin(), wanted.end(), 0);
  const double share = all == 0 ? 0.0 : std::min(1.0, static_cast<double>(room) / all);
  for (std::size_t i = 0; i < hints.size(); ++i) {
    const int more = static_cast<int>(wanted[i] * share);
    widths[i] += more;
    room -= more;
  }
  if (stretches) widths[stretched] += room;
  return widths;
}

int TwoLineWidth(const QString& title, const QFontMetrics& metrics) {
  const QStringList words = title.split(u' ', Qt::SkipEmptyParts);
  if (words.isEmpty()) return 0;
  int best = std::numeric_limits<int>::max();
  for (qsizetype first = 1; first <= words.size(); ++first) {
    const int above = metrics.horizontalAdvance(words.mid(0, first).join(u' '));
    const int below = metrics.horizontalAdvance(words.mid(first).join(u' '));
    best = std::min(best, std::max(above, below));
  }
  return best;
}

}  // namespace koru
