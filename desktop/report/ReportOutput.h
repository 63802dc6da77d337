#pragma once

#include <QString>

#include "desktop/report/ReportDocument.h"

class QPageLayout;
class QPrinter;

namespace koru {

/// The paper of a report, without margins: the template has them inside its page.
[[nodiscard]] QPageLayout PaperOf(const ReportDocument& report);

/// Writes all pages into a PDF file. False when `progress` ended the work; an existing file is then, and on a
/// failure, what it was before. Throws InputError naming the file when it cannot be written.
bool WriteReportPdf(const ReportDocument& report, const QString& path, const ReportProgress& progress);

/// Prints the pages that the printer's settings ask for. False when `progress` ended the work; the pages
/// before are then on the printer already. Throws InputError when the printer does not take them.
bool PrintReport(const ReportDocument& report, QPrinter& printer, const ReportProgress& progress);

}  // namespace koru
