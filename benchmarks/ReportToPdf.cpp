#include <QApplication>
#include <QPainter>
#include <QPdfWriter>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <vector>

#include "benchmarks/RunMain.h"
#include "benchmarks/Workload.h"
#include "desktop/report/ReportOutput.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "reports/BuiltInReports.h"
#include "siblings/report/ReportDocument.h"

namespace koru::bench {
namespace {

constexpr int kLines = 5'000;
constexpr double kMmPerInch = 25.4;
constexpr double kMmPerPoint = 25.4 / 72;
constexpr int kDotsPerInch = 1200;

/// Lines of a typical wholesaler's counting, with the column names of the print view.
Recordset Lines() {
  Recordset lines({"ID",
                   "Code",
                   "ManualCode",
                   "InvName",
                   "FullName",
                   "FarsiCreateDate",
                   "FarsiFromDate",
                   "FarsiToDate",
                   "Counter1",
                   "Counter2",
                   "Counter3",
                   "Accepter",
                   "Notes",
                   "GoodCode",
                   "GoodName",
                   "UnitName",
                   "FirstCounting",
                   "SecondCounting",
                   "ThirdCounting",
                   "AcceptedCounting",
                   "SystemCounting",
                   "Shortage",
                   "Surplus",
                   "BaseValue",
                   "ShortageValue",
                   "SurplusValue",
                   "TotalValue"});
  const char* const goods[] = {"روغن آفتابگردان 810 گرمي",    "برنج ايراني طارم ممتاز 10 كيلويي",
                               "چاي سياه شكسته 500 گرمي",     "رب گوجه فرنگي 800 گرمي",
                               "ماكاروني فرمي 700 گرمي پيچي", "قند كله"};
  const char* const units[] = {"عدد", "كارتن", "كيلوگرم"};
  for (int line = 0; line < kLines; ++line) {
    lines.AppendInteger(17);
    lines.AppendNull();
    for (const char* const text :
         {"ش-17", "انبار مركزي", "زهرا كريمي", "1404/12/29", "1404/01/01", "1404/12/29", "علي محمدي",
          "مريم احمدي", "حسين رضايي", "ليلا رحيمي", "پايان سال"}) {
      lines.AppendText(text);
    }
    lines.AppendText("K" + std::to_string(10'000 + line));
    lines.AppendText(std::string(goods[line % 6]) + " " + std::to_string(line % 97));
    lines.AppendText(units[line % 3]);
    const double book = line * 37 % 900;
    const double counted = line % 3 == 0 ? book : book + line % 11 - 5;
    const double rate = 1'000.0 * (line * 53 % 8'000 + 1);
    for (const double count : {counted, counted, counted, counted, book}) lines.AppendReal(count);
    const double missing = book - counted;
    const auto append = [&](double value) { value > 0 ? lines.AppendReal(value) : lines.AppendNull(); };
    append(missing);
    append(-missing);
    lines.AppendReal(rate);
    append(missing * rate);
    append(-missing * rate);
    lines.AppendReal(counted * rate);
  }
  return lines;
}

ReportDocument Report() {
  const std::string file = "reports/counting.rpt.txt";
  return {ParseReportTemplate(FindBuiltInReport(file), file),
          Lines(),
          {{"fmlCompanyName", "شركت پخش آفتاب كوير"}}};
}

/// A text at its position on the page, in device units.
struct PlacedText {
  QRectF area;
  QString text;
  int flags = 0;
  bool title = false;
};
using PlacedPage = std::vector<PlacedText>;

/// All texts of the report, ready to be painted.
std::vector<PlacedPage> PlacedTexts(const ReportDocument& report) {
  const ReportTemplate& paper = report.Template();
  const double unitsPerMm = kDotsPerInch / kMmPerInch;
  std::vector<PlacedPage> pages(report.Pages().size());
  for (std::size_t page = 0; page < pages.size(); ++page) {
    for (const PlacedBand& band : report.Pages()[page].bands) {
      double top = band.top;
      for (const ReportLine& line : paper.Band(band.kind).lines) {
        double right = paper.pageWidth - paper.marginRight;
        for (const ReportCell& cell : line.cells) {
          const QRectF area((right - cell.width) * unitsPerMm, top * unitsPerMm, cell.width * unitsPerMm,
                            line.height * unitsPerMm);
          const int side = cell.align == ReportAlign::Center ? Qt::AlignHCenter
                           : cell.align == ReportAlign::Left ? Qt::AlignLeft
                                                             : Qt::AlignRight;
          const QString text = ToQt(report.CellText(cell, band, page));
          if (!text.isEmpty())
            pages[page].push_back({area, text, side | Qt::AlignAbsolute | Qt::AlignVCenter, cell.bold});
          right -= cell.width;
        }
        top += line.height;
      }
    }
  }
  return pages;
}

/// Paints only the texts: no frames, no backgrounds, no check whether a text fits.
void PaintPlain(const ReportDocument& report, const std::vector<PlacedPage>& pages, const QString& file) {
  QPdfWriter pdf(file);
  pdf.setResolution(kDotsPerInch);
  pdf.setPageLayout(PaperOf(report));
  QPainter painter(&pdf);
  painter.setLayoutDirection(Qt::RightToLeft);
  QFont font = QApplication::font();
  font.setPixelSize(qRound(report.Template().fontSize * kMmPerPoint * kDotsPerInch / kMmPerInch));
  QFont bold = font;
  bold.setBold(true);
  for (const PlacedPage& page : pages) {
    if (&page != &pages.front()) pdf.newPage();
    bool isBold = false;
    painter.setFont(font);
    for (const PlacedText& text : page) {
      if (text.title != isBold) painter.setFont(text.title ? bold : font);
      isBold = text.title;
      painter.drawText(text.area, text.flags, text.text);
    }
  }
}

int Main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: koru-report-benchmarks FOLDER [options of Google Benchmark]\n", stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  SetUpApplication(application);
  const QString folder = QString::fromLocal8Bit(argv[1]);
  const ReportDocument report = Report();
  const std::vector<PlacedPage> texts = PlacedTexts(report);
  argv[1] = argv[0];
  const Workload workload{"report to PDF, 5,000 lines", 1.5,
                          [&] {
                            if (!WriteReportPdf(report, folder + QStringLiteral("/report.pdf"), {}))
                              throw InputError("not written");
                          },
                          [&] { PaintPlain(report, texts, folder + QStringLiteral("/plain.pdf")); }};
  return RunAndReport({workload}, {}, argc - 1, argv + 1) ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
