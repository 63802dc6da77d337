#include "siblings/report/ReportLayout.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/text/Errors.h"
#include "tests/siblings/report/ReportSamples.h"

namespace koru {
namespace {

using test::ExpectNothingIsCut;

std::size_t CountOf(const ReportPage& page, ReportBandKind kind) {
  std::size_t count = 0;
  for (const PlacedBand& band : page.bands) count += band.kind == kind ? 1U : 0U;
  return count;
}

TEST(ReportPages, Each_of_32767_rows_is_on_exactly_one_page_in_order_and_whole) {
  const ReportTemplate report = test::SmallTemplate();
  const std::vector<ReportPage> pages = LayOutReport(report, 32767);
  std::size_t next = 0;
  for (const ReportPage& page : pages) {
    for (const PlacedBand& band : page.bands) {
      if (band.kind != ReportBandKind::Row) continue;
      ASSERT_EQ(band.row, next);
      ++next;
    }
  }
  EXPECT_EQ(next, 32767U);
  ExpectNothingIsCut(report, pages);
}

TEST(ReportPages, Title_is_on_the_first_page_header_and_footer_on_each_and_the_summary_on_the_last) {
  const std::vector<ReportPage> pages = LayOutReport(test::SmallTemplate(), 40);
  ASSERT_EQ(pages.size(), 4U);  // 10 rows below the title, then 14 a page, and the summary below the last 2
  for (std::size_t page = 0; page < pages.size(); ++page) {
    EXPECT_EQ(CountOf(pages[page], ReportBandKind::Title), page == 0 ? 1U : 0U);
    EXPECT_EQ(CountOf(pages[page], ReportBandKind::Header), 1U);
    EXPECT_EQ(CountOf(pages[page], ReportBandKind::Footer), 1U);
    EXPECT_EQ(CountOf(pages[page], ReportBandKind::Summary), page == 3 ? 1U : 0U);
  }
  EXPECT_EQ(CountOf(pages[0], ReportBandKind::Row), 10U);
  EXPECT_EQ(CountOf(pages[1], ReportBandKind::Row), 14U);
  EXPECT_EQ(CountOf(pages[3], ReportBandKind::Row), 2U);
}

TEST(ReportPages, A_summary_that_does_not_fit_below_the_rows_moves_to_a_page_of_its_own) {
  const ReportTemplate report = test::SmallTemplate();
  const std::vector<ReportPage> pages = LayOutReport(report, 10);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(CountOf(pages[1], ReportBandKind::Row), 0U);
  EXPECT_EQ(CountOf(pages[1], ReportBandKind::Summary), 1U);
  ExpectNothingIsCut(report, pages);
}

TEST(ReportPages, Any_number_of_rows_is_shared_without_loss) {
  const ReportTemplate report = test::SmallTemplate();
  for (std::size_t rows = 0; rows <= 100; ++rows) {
    const std::vector<ReportPage> pages = LayOutReport(report, rows);
    std::size_t placed = 0;
    for (const ReportPage& page : pages) placed += CountOf(page, ReportBandKind::Row);
    ASSERT_EQ(placed, rows);
    ASSERT_EQ(CountOf(pages.back(), ReportBandKind::Summary), 1U);
    ExpectNothingIsCut(report, pages);
  }
}

TEST(ReportPages, Without_rows_there_is_one_page_with_the_empty_band) {
  const ReportTemplate report = ParseReportTemplate(
      "band title\nline 10\ncell 10\nband row\nline 5\ncell 10\nband empty\nline 8\ncell * \"none\"",
      "a.rpt");
  const std::vector<ReportPage> pages = LayOutReport(report, 0);
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(CountOf(pages[0], ReportBandKind::Empty), 1U);
  EXPECT_EQ(CountOf(LayOutReport(report, 1)[0], ReportBandKind::Empty), 0U);
}

TEST(ReportPages, Bands_that_are_higher_than_the_paper_are_refused) {
  const ReportTemplate report =
      ParseReportTemplate("band header\nline 200\ncell 10\nband row\nline 78\ncell 10\n", "high.rpt");
  try {
    static_cast<void>(LayOutReport(report, 1));
    FAIL() << "accepted";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find("high.rpt"), std::string::npos);
  }
  EXPECT_EQ(LayOutReport(
                ParseReportTemplate("band header\nline 200\ncell 10\nband row\nline 77\ncell 10\n", "a"), 3)
                .size(),
            3U);
}

}  // namespace
}  // namespace koru
