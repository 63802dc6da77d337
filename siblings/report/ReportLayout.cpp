#include "siblings/report/ReportLayout.h"

#include <algorithm>

namespace koru {
namespace {

constexpr double kTolerance = 0.001;  ///< for sums of lengths in mm

class Pages {
 public:
  explicit Pages(const ReportTemplate& report)
      : report_(report), bottom_(report.pageHeight - report.marginBottom - Height(ReportBandKind::Footer)) {
    NewPage();
  }

  void Place(ReportBandKind kind, std::size_t row = 0) {
    const double height = Height(kind);
    if (height <= 0) return;
    if (at_ + height > bottom_ + kTolerance) NewPage();
    pages_.back().bands.push_back({kind, at_, row});
    at_ += height;
  }

  std::vector<ReportPage> Finish() {
    EndPage();
    return std::move(pages_);
  }

 private:
  [[nodiscard]] double Height(ReportBandKind kind) const { return report_.Band(kind).Height(); }

  void PlaceAtTop(ReportBandKind kind) {
    if (Height(kind) <= 0) return;
    pages_.back().bands.push_back({kind, at_, 0});
    at_ += Height(kind);
  }
  void NewPage() {
    EndPage();
    pages_.emplace_back();
    at_ = report_.marginTop;
    if (pages_.size() == 1) PlaceAtTop(ReportBandKind::Title);
    PlaceAtTop(ReportBandKind::Header);
  }
  void EndPage() {
    if (pages_.empty() || Height(ReportBandKind::Footer) <= 0) return;
    pages_.back().bands.push_back({ReportBandKind::Footer, bottom_, 0});
  }

  const ReportTemplate& report_;
  double bottom_;  ///< where the footer begins
  double at_ = 0;
  std::vector<ReportPage> pages_;
};

/// Checks that the title, a row, the empty band and the summary each fit between header and footer.
void CheckRoom(const ReportTemplate& report) {
  double highest = 0;
  for (const auto kind :
       {ReportBandKind::Title, ReportBandKind::Row, ReportBandKind::Empty, ReportBandKind::Summary}) {
    highest = std::max(highest, report.Band(kind).Height());
  }
  const double around =
      report.Band(ReportBandKind::Header).Height() + report.Band(ReportBandKind::Footer).Height();
  if (highest + around > report.ContentHeight() + kTolerance) {
    RefuseReport(report.file, 0, "بخشها در بلندي كاغذ جا نمي شوند");
  }
}

}  // namespace

std::vector<ReportPage> LayOutReport(const ReportTemplate& report, std::size_t rows) {
  CheckRoom(report);
  Pages pages(report);
  for (std::size_t row = 0; row < rows; ++row) pages.Place(ReportBandKind::Row, row);
  if (rows == 0) pages.Place(ReportBandKind::Empty);
  pages.Place(ReportBandKind::Summary);
  return pages.Finish();
}

}  // namespace koru
