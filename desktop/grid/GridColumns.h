#pragma once

#include <QString>
#include <vector>

class QFontMetrics;

namespace koru {

/// The widths of a column, in pixels.
struct ColumnSizeHint {
  int least = 0;    ///< a narrower column cuts texts off
  int natural = 0;  ///< the width that its title gives it; 0 hides the column
};

/// Distributes `available` pixels among the columns and returns their widths. Every column gets its least
/// width. The remaining pixels extend column `stretch` to its natural width, then the others in proportion;
/// what is left extends `stretch` again (-1: no column). If the least widths do not fit, the sum exceeds
/// `available` and the grid scrolls.
[[nodiscard]] std::vector<int> FitColumns(const std::vector<ColumnSizeHint>& hints, int available,
                                          int stretch);

/// The width in pixels of a title broken into at most two lines.
[[nodiscard]] int TwoLineWidth(const QString& title, const QFontMetrics& metrics);

}  // namespace koru
