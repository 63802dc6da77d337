#include "desktop/report/ReportPainter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "tests/siblings/report/ReportSamples.h"

namespace koru {
namespace {

constexpr double kPixelsPerMm = 6;

/// A page as an image with 6 pixels per millimetre.
QImage Picture(const ReportDocument& report, std::size_t page = 0) {
  const ReportTemplate& paper = report.Template();
  QImage image(qRound(paper.pageWidth * kPixelsPerMm), qRound(paper.pageHeight * kPixelsPerMm),
               QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintReportPage(painter, report, page, kPixelsPerMm);
  return image;
}

/// The number of pixels in an area (in mm) that are darker than the paper.
int Ink(const QImage& image, double left, double top, double width, double height) {
  int ink = 0;
  for (int y = qRound(top * kPixelsPerMm); y < qRound((top + height) * kPixelsPerMm); ++y) {
    for (int x = qRound(left * kPixelsPerMm); x < qRound((left + width) * kPixelsPerMm); ++x) {
      ink += qGray(image.pixel(x, y)) < 200 ? 1 : 0;
    }
  }
  return ink;
}

ReportDocument OneRow(const std::string& cells, const std::string& name = "كالا") {
  Recordset records({"Name"});
  records.AppendText(name);
  return {ParseReportTemplate("page A5 landscape\nmargins 10 10 10 10\nband row\nline 10\n" + cells, "a.rpt"),
          std::move(records),
          {}};
}

TEST(PaintedReport, Columns_run_from_right_to_left) {
  const QImage image = Picture(OneRow("cell 30 \"{Name}\"\ncell 50\ncell 30 \"{Name}\"\n"));
  EXPECT_GT(Ink(image, 170, 10, 30, 10), 50) << "the first cell ends at the right margin";
  EXPECT_EQ(Ink(image, 121, 10, 48, 10), 0) << "the second is empty";
  EXPECT_GT(Ink(image, 90, 10, 30, 10), 50);
  EXPECT_EQ(Ink(image, 0, 10, 89, 10), 0);
}

TEST(PaintedReport, A_text_begins_at_the_side_that_it_is_aligned_to) {
  const QImage right = Picture(OneRow("cell * \"{Name}\" right\n"));
  EXPECT_GT(Ink(right, 180, 10, 20, 10), 50);
  EXPECT_EQ(Ink(right, 10, 10, 160, 10), 0);
  const QImage left = Picture(OneRow("cell * \"{Name}\" left\n"));
  EXPECT_GT(Ink(left, 10, 10, 20, 10), 50);
  EXPECT_EQ(Ink(left, 40, 10, 160, 10), 0);
  const QImage center = Picture(OneRow("cell * \"{Name}\" center\n"));
  EXPECT_GT(Ink(center, 95, 10, 20, 10), 50);
  const QImage code = Picture(OneRow("cell * \"{Name}\" code\n", "12345"));
  EXPECT_GT(Ink(code, 180, 10, 20, 10), 50) << "a code is aligned as it is asked for, too";
}

TEST(PaintedReport, An_empty_box_is_a_frame_to_write_into) {
  const QImage image = Picture(OneRow("cell 40 box\n"));
  EXPECT_GT(Ink(image, 159, 9, 42, 12), 2 * 6 * (40 + 10) - 50) << "four lines";
  EXPECT_EQ(Ink(image, 161, 11, 38, 8), 0) << "nothing in it";
}

TEST(PaintedReport, A_long_name_becomes_smaller_and_stays_within_its_cell) {
  std::string longName = "شير";
  for (int i = 0; i < 40; ++i) longName += " پرچرب";
  for (const std::string& name : {longName, std::string(200, 'x'), std::string("a\nb\nc\nd\ne\nf\ng")}) {
    const QImage image = Picture(OneRow("cell 20\ncell 40 \"{Name}\"\n", name));
    EXPECT_GT(Ink(image, 140, 10, 40, 10), 100) << name;
    EXPECT_EQ(Ink(image, 180.2, 0, 29, 148), 0) << name;
    EXPECT_EQ(Ink(image, 0, 0, 139.8, 148), 0) << name;
    EXPECT_EQ(Ink(image, 140, 0, 40, 9.5), 0) << name;
    EXPECT_EQ(Ink(image, 140, 20.5, 40, 100), 0) << name;
  }
}

TEST(PaintedReport, A_minus_is_painted_before_its_number) {
  // The sign alone is left of the digits; its pixels form a bar at half height.
  const QImage image = Picture(OneRow("cell * \"{Name}\" left number 0 size 20\n", "-1"));
  double first = 0;
  for (double x = 10; x < 40 && first == 0; x += 0.2) {
    if (Ink(image, x, 10, 0.2, 10) > 0) first = x;
  }
  ASSERT_GT(first, 0);
  EXPECT_EQ(Ink(image, first, 10, 0.8, 3), 0) << "a bar, not a digit";
  EXPECT_GT(Ink(image, first, 13, 0.8, 4), 0);
}

TEST(PaintedReport, The_last_page_shows_the_summary_below_its_rows) {
  const ReportDocument report(test::SmallTemplate(), test::Records(40), {});
  const QImage image = Picture(report, 3);
  EXPECT_GT(Ink(image, 10, 24, 190, 10), 0) << "header";
  EXPECT_GT(Ink(image, 10, 34, 190, 12), 0) << "two rows";
  EXPECT_GT(Ink(image, 10, 46, 190, 15), 0) << "summary";
  EXPECT_EQ(Ink(image, 10, 62, 190, 55), 0);
  EXPECT_GT(Ink(image, 10, 119, 190, 5), 0) << "footer";
}

}  // namespace
}  // namespace koru
