#pragma once

#include <string_view>
#include <vector>

#include "lines/LineTally.h"
#include "platform/text/PersianWords.h"

namespace koru {

/// The lines that a user wants to see: those of a kind whose name, code or barcode have the words of a text.
class LineFilter {
 public:
  LineFilter() = default;
  LineFilter(LineKind kind, std::string_view text) : kind_(kind), words_(text) {}

  /// Whether a line may not fit.
  [[nodiscard]] bool IsOn() const { return kind_ != LineKind::All || !words_.IsEmpty(); }
  /// The rows of the lines that fit, in their order. `tally` is that of `lines`.
  [[nodiscard]] std::vector<int> RowsThatFit(const Grid& lines, LineTally& tally) const;

 private:
  LineKind kind_ = LineKind::All;
  PersianWords words_;
};

}  // namespace koru
