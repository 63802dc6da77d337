#include "lines/LineFilter.h"

#include "lines/LineColumns.h"

namespace koru {

std::vector<int> LineFilter::RowsThatFit(const Grid& lines, LineTally& tally) const {
  std::vector<int> rows;
  for (int row = 1; row < lines.Rows(); ++row) {
    if (kind_ != LineKind::All && !tally.StateOf(row).Is(kind_)) continue;
    const bool hasWords = words_.IsEmpty() || words_.AreIn({lines.TextMatrix(row, LineColumn::Barcode),
                                                            lines.TextMatrix(row, LineColumn::GoodCode),
                                                            lines.TextMatrix(row, LineColumn::GoodName)});
    if (hasWords) rows.push_back(row);
  }
  return rows;
}

}  // namespace koru
