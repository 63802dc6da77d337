#pragma once

#include <cstddef>
#include <vector>

#include "siblings/report/ReportTemplate.h"

namespace koru {

/// A band at its position on a page.
struct PlacedBand {
  ReportBandKind kind = ReportBandKind::Row;
  double top = 0;       ///< mm below the upper edge of the paper
  std::size_t row = 0;  ///< the index of the printed row; for rows only
};

struct ReportPage {
  std::vector<PlacedBand> bands;  ///< from top to bottom
};

/// Distributes the rows over pages, in order; no row is split. Returns at least one page. Throws InputError
/// when the template's bands leave no room for a row on its paper.
[[nodiscard]] std::vector<ReportPage> LayOutReport(const ReportTemplate& report, std::size_t rows);

}  // namespace koru
