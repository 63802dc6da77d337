#include "reports/BuiltInReports.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "siblings/report/ReportDocument.h"
#include "tests/siblings/report/ReportDesk.h"
#include "tests/siblings/report/ReportSamples.h"

namespace koru {
namespace {

using test::TextsOf;

class BuiltInReport : public test::ReportDesk {
 protected:
  [[nodiscard]] std::unique_ptr<ReportDocument> Report(const std::string& name) {
    printer.SetReportFileName("reports/" + name);
    return printer.Prepare();
  }
};

TEST_F(BuiltInReport, The_counting_shows_counts_differences_amounts_and_their_sums) {
  AddLine("1", "نان", 10, 12, 100);
  AddLine("2", "پنير", 7, 5.5, 2000);
  const auto report = Report("counting.rpt.txt");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row),
            "۱|c1|نان|عدد|۱۰|||۱۰|۱۲|۲||۱۰۰|۲۰۰||۱٬۰۰۰|"
            "۲|c2|پنير|عدد|۷|||۷|۵٫۵||۱٫۵|۲٬۰۰۰||۳٬۰۰۰|۱۴٬۰۰۰|");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Summary), "جمع ۲ سطر|۲۰۰|۳٬۰۰۰|۱۵٬۰۰۰|");
  EXPECT_NE(TextsOf(*report, 0, ReportBandKind::Title).find("شركت آفتاب"), std::string::npos);
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Footer), "شمارش ۱|صفحه ۱ از ۱|");
}

TEST_F(BuiltInReport, The_sheet_for_the_shelf_has_three_empty_boxes_and_no_book_stock) {
  AddLine("1", "نان", 10, 12, 100);
  const auto report = Report("counting-sheet.rpt.txt");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row), "۱|1|c1|نان|عدد||||");
  const auto& cells = report->Template().Band(ReportBandKind::Row).lines[0].cells;
  for (std::size_t i = cells.size() - 3; i < cells.size(); ++i) {
    EXPECT_TRUE(cells[i].boxed);
    EXPECT_TRUE(cells[i].pieces.empty());
    EXPECT_GE(cells[i].width, 15) << "room for a hand";
  }
  for (const ReportBand& band : report->Template().bands) {
    for (const ReportLine& line : band.lines) {
      for (const ReportCell& cell : line.cells) {
        for (const ReportPiece& piece : cell.pieces) {
          EXPECT_EQ(piece.text.find("Counting"), std::string::npos) << piece.text;
          EXPECT_EQ(piece.text.find("Value"), std::string::npos) << piece.text;
        }
      }
    }
  }
}

TEST_F(BuiltInReport, The_sheet_for_the_shelf_has_the_row_numbers_of_the_form_in_the_order_of_the_codes) {
  AddLine("3", "نان", 10, 12, 100);
  database.Execute(
      "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode) values (1, 9, 'gone')");
  AddLine("1", "پنير", 10, 12, 100);
  AddLine("2", "ماست", 10, 12, 100);
  database.Execute(
      "update tblInventoryCountingDetail set RowNumber = case Barcode when '3' then 1 when 'gone' then 2 "
      "when '1' then 3 else 4 end");
  const auto report = Report("counting-sheet.rpt.txt");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row),
            "۲|1|c1|پنير|عدد||||۳|2|c2|ماست|عدد||||۱|3|c3|نان|عدد||||")
      << "the form has no line of a good that no longer exists";
}

TEST_F(BuiltInReport, The_list_of_differences_leaves_out_what_agrees) {
  AddLine("1", "نان", 12, 12, 100);
  AddLine("2", "پنير", 7, 5.5, 2000);
  AddLine("3", "ماست", 1, 2, 10);
  database.Execute(
      "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode) values (1, 4, '3')");
  const auto report = Report("differences.rpt.txt");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row),
            "۱|c2|پنير|عدد|۷|۵٫۵||۱٫۵||۳٬۰۰۰|۲|c3|ماست|عدد|۱|۲|۱||۱۰||");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Summary).substr(0, 32).find("جمع ۲ سطر|۱۰|۳"), 0U);
}

TEST_F(BuiltInReport, A_counting_that_agrees_says_so) {
  AddLine("1", "نان", 12, 12, 100);
  const auto report = Report("differences.rpt.txt");
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Empty), "شمارش با دفتر مغايرتي ندارد.|");
  EXPECT_NE(TextsOf(*report, 0, ReportBandKind::Title).find("انبار مركزي"), std::string::npos);
}

}  // namespace
}  // namespace koru
