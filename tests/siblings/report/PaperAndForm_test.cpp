#include <cstdio>

#include "lines/CountingLines.h"
#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "services/SharedState.h"
#include "siblings/report/ReportNumbers.h"
#include "tests/siblings/report/ReportDesk.h"
#include "tests/siblings/report/ReportSamples.h"
#include "tests/support/BareCountingForm.h"

namespace koru {
namespace {

using test::Bare;
using test::TextsOf;

/// A counting with a number of lines, on the counting form's grid and on paper.
class PaperAndForm : public test::ReportDesk, public ::testing::WithParamInterface<int> {
 protected:
  PaperAndForm() {
    const auto barcode = [](int i) { return "'b" + std::to_string(i) + "'"; };
    database.InsertRows("tblGood (Barcode, Code, Name)", 1, GetParam(), [&](int i) {
      const std::string number = std::to_string(i);
      return barcode(i) + ",'c" + std::string(5 - number.size(), '0') + number + "','كالاي " + number + "'";
    });
    database.InsertRows(
        "tblInventoryCountingDetail (CountingID, RowNumber, Barcode, ScaleID, FirstCounting, "
        "AcceptedCounting,"
        " SystemCounting, ContradictionCounting, BaseValue)",
        1, GetParam(),
        [&](int i) { return "1," + std::to_string(i) + "," + barcode(i) + ",4," + Figures(i); });
    // The good of one line no longer exists.
    database.Execute(
        "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode, AcceptedCounting, "
        "SystemCounting, ContradictionCounting, BaseValue) values (1, 0, 'gone', 5, 7, -2, 1000)");
    shared.data.SetConnectionString(database.ConnectionText());
    lines_.SetUp();
    lines_.FillInvCounterDetailData(1);
  }

  /// Counts, book stock, difference and rate of a line. Every seventh line has no difference, every eleventh
  /// no count, some have no rate; quantities have halves of a thousandth, and rates have fractions.
  static std::string Figures(int i) {
    const double book = i % 900 + (i % 7 != 0 ? (i % 13 - 6) * 0.0625 : i % 8 * 0.125);
    const double accepted = i % 900 + i % 8 * 0.125;
    const bool isCounted = i % 11 != 0;
    const bool differs = isCounted && accepted != book;
    const std::string count = isCounted ? NumberText(accepted) : "NULL";
    return count + "," + count + "," + NumberText(book) + "," +
           (differs ? NumberText(accepted - book) : "NULL") + "," +
           (i % 17 != 0 ? NumberText(i % 4000 * 250.5 + 1) : "NULL");
  }

  [[nodiscard]] std::unique_ptr<ReportDocument> Report(const std::string& name) {
    printer.SetReportFileName("reports/" + name);
    return printer.Prepare();
  }

  /// The content of a total below the grid, formatted as on paper.
  static std::string OnPaper(const TextBox& total) {
    return PersianNumber(ReportNumber(Val(total.Text()), 0));
  }

  SharedState shared{Services()};
  test::BareCountingForm form{screen};

 private:
  CountingLines lines_{form, shared};
};

TEST_P(PaperAndForm, The_sums_on_paper_are_the_forms) {
  ASSERT_EQ(form.flexDetail.Rows(), GetParam() + 1);
  const auto summary = [&](const char* report) {
    const auto document = Report(report);
    return TextsOf(*document, document->Pages().size() - 1, ReportBandKind::Summary);
  };
  const std::string amounts =
      "|" + OnPaper(form.txtTotalBelowValue) + "|" + OnPaper(form.txtTotalAboveValue) + "|";
  EXPECT_EQ(summary("counting.rpt.txt"), "جمع " + PersianDigits(std::to_string(GetParam())) + " سطر" +
                                             amounts + OnPaper(form.txtTotalValue) + "|");
  EXPECT_NE(summary("differences.rpt.txt").find(" سطر" + amounts), std::string::npos);
}

TEST_P(PaperAndForm, Each_line_is_on_exactly_one_page_and_each_page_shows_its_number) {
  for (const char* const name : {"counting.rpt.txt", "counting-sheet.rpt.txt", "differences.rpt.txt"}) {
    const bool all = std::string(name) != "differences.rpt.txt";
    const auto report = Report(name);
    const ReportLine& cells = report->Template().Band(ReportBandKind::Row).lines.at(0);
    const std::size_t codeAt = std::string(name) == "counting-sheet.rpt.txt" ? 2 : 1;
    std::vector<std::string> expected;
    for (int line = 1; line < form.flexDetail.Rows(); ++line) {
      const bool differs = !form.flexDetail.TextMatrix(line, LineColumn::Shortage).empty() ||
                           !form.flexDetail.TextMatrix(line, LineColumn::Surplus).empty();
      if (all || differs) expected.emplace_back(form.flexDetail.TextMatrix(line, LineColumn::GoodCode));
    }
    std::vector<std::string> printed;
    for (std::size_t page = 0; page < report->Pages().size(); ++page) {
      for (const PlacedBand& band : report->Pages()[page].bands) {
        if (band.kind != ReportBandKind::Row) continue;
        printed.push_back(report->CellText(cells.cells.at(codeAt), band, page));
        ASSERT_EQ(Bare(report->CellText(cells.cells.at(0), band, page)),
                  PersianDigits(std::to_string(printed.size())));
      }
      ASSERT_NE(TextsOf(*report, page, ReportBandKind::Footer)
                    .find("صفحه " + PersianDigits(std::to_string(page + 1)) + " از " +
                          PersianDigits(std::to_string(report->Pages().size())) + "|"),
                std::string::npos);
    }
    EXPECT_EQ(printed, expected) << name;
    test::ExpectNothingIsCut(report->Template(), report->Pages());
  }
}

INSTANTIATE_TEST_SUITE_P(Lines, PaperAndForm, ::testing::Values(500, 5000, 32767));

}  // namespace
}  // namespace koru
