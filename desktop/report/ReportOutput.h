#pragma once

#include <QString>

#include "siblings/report/ReportDocument.h"

class QPageLayout;
class QPrinter;

namespace koru {

/// The paper of a report, without margins: the template's page includes them.
[[nodiscard]] QPageLayout PaperOf(const ReportDocument& report);

/// Writes all pages to a PDF file. False when `progress` cancelled. After a cancel or a failure, an existing
/// file is unchanged. Throws InputError with the file's name when it cannot be written.
bool WriteReportPdf(const ReportDocument& report, const QString& path, const ReportProgress& progress);

/// Prints the page range in the printer's settings. False when `progress` cancelled; the pages before that
/// have been sent to the printer. Throws InputError when the printer does not accept them.
bool PrintReport(const ReportDocument& report, QPrinter& printer, const ReportProgress& progress);

}  // namespace koru
