#pragma once

#include <cstddef>
#include <vector>

#include "desktop/report/ReportTemplate.h"

namespace koru {

/// A band where it stands on its page.
struct PlacedBand {
  ReportBandKind kind = ReportBandKind::Row;
  double top = 0;       ///< mm below the upper edge of the paper
  std::size_t row = 0;  ///< which of the printed rows, from 0; for rows only
};

struct ReportPage {
  std::vector<PlacedBand> bands;  ///< from top to bottom
};

/// Shares the rows among pages: each row stands on exactly one page, whole, in order. There is always at
/// least one page. Throws InputError when the template's bands leave no room for a row on its paper.
[[nodiscard]] std::vector<ReportPage> LayOutReport(const ReportTemplate& report, std::size_t rows);

}  // namespace koru
