#include "desktop/report/ReportOutput.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

#include "desktop/report/ReportPainter.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kPdfDotsPerInch = 1200;

/// Paints the pages `first` to `last` (from 0). False when `progress` cancelled or the device accepts no
/// further page.
template <class Device>
bool PaintPages(QPainter& painter, Device& device, const ReportDocument& report, std::size_t first,
                std::size_t last, const ReportProgress& progress) {
  const double unitsPerMm = device.resolution() / kMmPerInch;
  for (std::size_t page = first; page <= last; ++page) {
    if (page > first && !device.newPage()) throw InputError("كاغذ بعدي پذيرفته نشد.");
    PaintReportPage(painter, report, page, unitsPerMm);
    if (progress && !progress(page - first + 1, last - first + 1)) return false;
  }
  return true;
}

[[noreturn]] void RefuseFile(const QString& path, const QString& reason) {
  throw InputError("پروندة PDF نوشته نشد: " + LeftToRight(FromQt(path)) + " (" + FromQt(reason) + ")");
}

}  // namespace

QPageLayout PaperOf(const ReportDocument& report) {
  const ReportTemplate& page = report.Template();
  const double narrow = std::min(page.pageWidth, page.pageHeight);
  const double wide = std::max(page.pageWidth, page.pageHeight);
  return {QPageSize(QSizeF(narrow, wide), QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch),
          page.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
          QPageLayout::Millimeter};
}

bool WriteReportPdf(const ReportDocument& report, const QString& path, const ReportProgress& progress) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) RefuseFile(path, file.errorString());
  bool whole = false;
  {
    QPdfWriter pdf(&file);
    pdf.setResolution(kPdfDotsPerInch);
    pdf.setPageLayout(PaperOf(report));
    QPainter painter;
    if (!painter.begin(&pdf)) RefuseFile(path, file.errorString());
    whole = PaintPages(painter, pdf, report, 0, report.Pages().size() - 1, progress);
  }
  // commit() does not detect that the disk was too full for the last bytes; flush() does.
  const bool written = file.flush();
  const QString reason = file.errorString();
  if (!whole || !written) {
    file.cancelWriting();
    file.commit();
    if (whole) RefuseFile(path, reason);
    return false;
  }
  if (!file.commit()) RefuseFile(path, file.errorString());
  return true;
}

bool PrintReport(const ReportDocument& report, QPrinter& printer, const ReportProgress& progress) {
  printer.setFullPage(true);
  printer.setPageLayout(PaperOf(report));
  const std::size_t all = report.Pages().size();
  const bool range = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  const std::size_t first =
      range ? std::min<std::size_t>(static_cast<std::size_t>(printer.fromPage()), all) - 1 : 0;
  const std::size_t last =
      range ? std::clamp<std::size_t>(static_cast<std::size_t>(printer.toPage()), first + 1, all) - 1
            : all - 1;
  QPainter painter;
  if (!painter.begin(&printer)) throw InputError("چاپگر آماده نيست: " + FromQt(printer.printerName()));
  const bool whole = PaintPages(painter, printer, report, first, last, progress);
  if (!whole) printer.abort();
  return whole;
}

}  // namespace koru
