#include "desktop/manual/ManualPrint.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "desktop/manual/ToolkitHtml.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "siblings/report/ReportNumbers.h"

namespace koru {
namespace {

constexpr double kMarginMm = 14;
constexpr double kGapMm = 7;
constexpr double kFootMm = 8;
constexpr double kMmPerInch = 25.4;
constexpr int kMaxPicture = 620;  ///< the width of a picture on paper, in pixels of 1/96 inch
constexpr int kPdfDotsPerInch = 1200;
constexpr const char* kFootFont = "DejaVu Sans";

double Millimeters(const QPaintDevice& device, double mm) { return mm / kMmPerInch * device.logicalDpiY(); }

QString ContentOf(const QString& file) {
  QFile page(file);
  return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

/// The style of the sheet of keys, which is small, so that it needs two sides of a paper at most. It replaces
/// that of the pages: where two rules match, the toolkit takes some properties from the first.
constexpr const char* kSheetStyle = R"(
body { font-family: "Vazirmatn", "DejaVu Sans", "Tahoma", sans-serif; font-size: 8.5pt; line-height: 130%; }
h1 { font-size: 15pt; color: #264c73; margin: 0px; }
h2 { font-size: 10.5pt; color: #264c73; margin-top: 9px; margin-bottom: 3px; }
kbd { font-family: "DejaVu Sans", sans-serif; background-color: #e4e9f1; color: #12263b; }
b.caption { color: #7a3e00; }
table { border-collapse: collapse; }
td, th { border: 1px solid #b4bfcd; padding: 1px 5px; line-height: 115%; }
th { background-color: #dce3ed; }
)";

/// The page for paper: without the links to other pages, and with no picture wider than the paper.
QString ForPaper(const QUrl& page, bool& isSheetOfKeys) {
  QString html = ContentOf(page.toLocalFile());
  isSheetOfKeys = html.contains(QStringLiteral("class=\"sheet\""));
  static const QRegularExpression links(QStringLiteral("<p class=\"nav\">.*?</p>|<link [^>]*>"),
                                        QRegularExpression::DotMatchesEverythingOption);
  html.remove(links);
  const QString style = isSheetOfKeys
                            ? QString::fromLatin1(kSheetStyle)
                            : ContentOf(page.resolved(QUrl(QStringLiteral("manual.css"))).toLocalFile());
  if (isSheetOfKeys) {  // keys stay whole
    html.replace(QStringLiteral("<th width=\"26%\">"), QStringLiteral("<th width=\"38%\">"));
    html.replace(QStringLiteral("<kbd>Page "), QStringLiteral("<kbd>Page\u00A0"));
  }
  html.replace(QStringLiteral("</head>"), QStringLiteral("<style>%1</style></head>").arg(style));
  static const QRegularExpression picture(QStringLiteral("<img src=\"([^\"]*)\""));
  QString fitted;
  qsizetype end = 0;
  for (const QRegularExpressionMatch& found : picture.globalMatch(html)) {
    const QSize size = QImageReader(page.resolved(QUrl(found.captured(1))).toLocalFile()).size();
    fitted += html.mid(end, found.capturedEnd() - end) +
              QStringLiteral(" width=\"%1\"").arg(std::min(size.width(), kMaxPicture));
    end = found.capturedEnd();
  }
  return ToolkitHtml(fitted + html.mid(end));
}

/// The end of a heading's section, which is the next heading or the end of the page.
QTextBlock NextHeading(QTextBlock block) {
  do {
    block = block.next();
  } while (block.isValid() && block.blockFormat().headingLevel() == 0);
  return block;
}

}  // namespace

QPageLayout PrintedManual::Paper() {
  return {QPageSize(QPageSize::A4), QPageLayout::Portrait,
          QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter};
}

PrintedManual::PrintedManual(const QString& file, QPaintDevice& device) : device_(device) {
  const QUrl place = QUrl::fromLocalFile(file);
  const QString html = ForPaper(place, isSheetOfKeys_);
  columns_ = isSheetOfKeys_ ? 2 : 1;
  gap_ = Millimeters(device, kGapMm);
  foot_ = Millimeters(device, kFootMm);
  column_ = QSizeF((device.width() - gap_ * (columns_ - 1)) / columns_, device.height() - foot_);
  text_.setDocumentMargin(0);
  text_.setBaseUrl(place);
  text_.documentLayout()->setPaintDevice(&device);
  text_.setHtml(html);
  text_.setPageSize(column_);
  KeepTogether();
}

int PrintedManual::Sheets() const { return (text_.pageCount() + columns_ - 1) / columns_; }

/// Whether a heading and what must be in its column are in two columns, and one column has room for them.
bool PrintedManual::IsDivided(const QTextBlock& heading) const {
  const auto& layout = *text_.documentLayout();
  QTextBlock last = heading.next();
  if (isSheetOfKeys_) {
    const QTextBlock next = NextHeading(heading);
    last = next.isValid() ? next.previous() : text_.lastBlock();
  }
  if (!last.isValid()) return false;
  const double top = layout.blockBoundingRect(heading).top();
  const double bottom = layout.blockBoundingRect(last).bottom();
  const bool isDivided = std::floor(top / column_.height()) != std::floor((bottom - 1) / column_.height());
  return isDivided && bottom - top < column_.height();
}

void PrintedManual::KeepTogether() {
  for (QTextBlock block = text_.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || !IsDivided(block)) continue;
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).mergeBlockFormat(format);
  }
}

void PrintedManual::Paint(QPainter& painter, int sheet) {
  for (int column = 0; column < columns_; ++column) {
    const int page = sheet * columns_ + column;
    if (page >= text_.pageCount()) break;
    painter.save();
    painter.translate((columns_ - 1 - column) * (column_.width() + gap_), -page * column_.height());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(QPointF(0, page * column_.height()), column_);
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(context.clip);
    text_.documentLayout()->draw(&painter, context);
    painter.restore();
  }
  PaintFoot(painter, sheet);
}

void PrintedManual::PaintFoot(QPainter& painter, int sheet) const {
  const std::string all = std::to_string(Sheets());
  const QString number = ToQt(PersianDigits("صفحهٔ " + std::to_string(sheet + 1) + " از " + all));
  const QRectF foot(0, column_.height(), device_.width(), foot_);
  painter.setFont(QFont(QLatin1String(kFootFont), 8));
  painter.setPen(QColor(0x46, 0x53, 0x62));
  painter.setLayoutDirection(Qt::RightToLeft);
  painter.drawText(foot, Qt::AlignBottom | Qt::AlignRight | Qt::AlignAbsolute,
                   text_.metaInformation(QTextDocument::DocumentTitle));
  painter.drawText(foot, Qt::AlignBottom | Qt::AlignLeft | Qt::AlignAbsolute, number);
}

void WriteManualPdf(const QString& page, const QString& pdf) {
  QSaveFile file(pdf);
  const auto refuse = [&] {
    const std::string reason = FromQt(file.errorString());
    throw InputError("پروندة PDF نوشته نشد: " + LeftToRight(FromQt(pdf)) + " (" + reason + ")");
  };
  if (!file.open(QIODevice::WriteOnly)) refuse();
  {
    QPdfWriter writer(&file);
    writer.setResolution(kPdfDotsPerInch);
    writer.setPageLayout(PrintedManual::Paper());
    PrintedManual printed(page, writer);
    QPainter painter(&writer);
    for (int sheet = 0; sheet < printed.Sheets(); ++sheet) {
      if (sheet > 0) writer.newPage();
      printed.Paint(painter, sheet);
    }
  }
  // commit() does not detect that the disk was too full for the last bytes; flush() does.
  if (!file.flush() || !file.commit()) refuse();
}

void PrintManual(const QString& page, QPrinter& printer) {
  PrintedManual printed(page, printer);
  QPainter painter;
  if (!painter.begin(&printer)) throw InputError("چاپگر آماده نيست: " + FromQt(printer.printerName()));
  const int last = std::min(printer.toPage(), printed.Sheets());
  for (int sheet = printer.fromPage(); sheet <= last; ++sheet) {
    if (sheet > printer.fromPage() && !printer.newPage()) throw InputError("كاغذ بعدي پذيرفته نشد.");
    printed.Paint(painter, sheet - 1);
  }
}

}  // namespace koru
