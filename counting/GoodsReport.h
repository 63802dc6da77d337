#pragma once

#include <string>
#include <unordered_set>

#include "platform/controls/Grid.h"
#include "search/PickedGoods.h"

namespace koru {

/// What became of the goods of a goods search.
struct GoodsReport {
  std::string sentence;  ///< how many lines were added, and which of the picked goods had one
  /// The picked goods that got no line, one by one with the reason; empty when each has a line.
  std::string message;
};

/// The barcodes of all lines.
[[nodiscard]] std::unordered_set<std::string> BarcodesOf(const Grid& lines);

/// `before`: the barcodes of the lines before the search; `lines`: those after it.
[[nodiscard]] GoodsReport ReportOnGoods(int added, const PickedGoods& picked,
                                        const std::unordered_set<std::string>& before, const Grid& lines);

}  // namespace koru
