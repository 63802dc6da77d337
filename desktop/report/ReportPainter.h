#pragma once

#include <cstddef>

#include "desktop/report/ReportDocument.h"

class QPainter;

namespace koru {

/// Paints a page (from 0) of a report: for the preview, a PDF file and a printer alike. The painter's origin
/// is the paper's upper left corner; `unitsPerMm` are the painter's units to a millimetre.
void PaintReportPage(QPainter& painter, const ReportDocument& report, std::size_t page, double unitsPerMm);

}  // namespace koru
