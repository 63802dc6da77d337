#pragma once

#include <QString>
#include <vector>

class QFontMetrics;

namespace koru {

/// The widths that a column can have, in pixels.
struct ColumnSizeHint {
  int least = 0;    ///< below this, texts are cut off
  int natural = 0;  ///< what its title asks for; 0 hides the column
};

/// Shares `available` pixels among the columns. Every column gets its least width; what is left brings column
/// `stretch` to its natural width first, then the others in proportion, and the rest is `stretch`'s again
/// (-1: nobody's). Where even the least widths do not fit, the grid scrolls.
[[nodiscard]] std::vector<int> FitColumns(const std::vector<ColumnSizeHint>& wishes, int available,
                                          int stretch);

/// The width of a title that is written on at most two lines.
[[nodiscard]] int TwoLineWidth(const QString& title, const QFontMetrics& metrics);

}  // namespace koru
