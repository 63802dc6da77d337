#pragma once

#include <cstddef>

#include "siblings/report/ReportDocument.h"

class QPainter;

namespace koru {

/// Paints a page (from 0) of a report; used for the preview, PDF files and printers. The painter's origin is
/// the upper left corner of the paper; `unitsPerMm` is the number of painter units in a millimetre.
void PaintReportPage(QPainter& painter, const ReportDocument& report, std::size_t page, double unitsPerMm);

}  // namespace koru
