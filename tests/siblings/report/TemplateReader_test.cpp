#include <gtest/gtest.h>

#include "platform/text/Errors.h"
#include "siblings/report/ReportTemplate.h"

namespace koru {
namespace {

TEST(ReportFile, Page_margins_font_digits_and_condition_are_read) {
  const ReportTemplate report = ParseReportTemplate(
      "\xEF\xBB\xBFpage A4 landscape\r\nmargins 5 10 15 20\nfont 8.5 \"Some Face\"\ndigits latin\n"
      "rows Amount <> -0.5\nband row\nline 7\ncell 10 \"x\"\n",
      "a.rpt");
  EXPECT_EQ(report.pageWidth, 297);
  EXPECT_EQ(report.pageHeight, 210);
  EXPECT_EQ(report.marginTop, 5);
  EXPECT_EQ(report.marginRight, 10);
  EXPECT_EQ(report.marginBottom, 15);
  EXPECT_EQ(report.marginLeft, 20);
  EXPECT_EQ(report.fontSize, 8.5);
  EXPECT_EQ(report.fontFamily, "Some Face");
  EXPECT_FALSE(report.persianDigits);
  ASSERT_TRUE(report.rows);
  EXPECT_EQ(report.rows->column, "Amount");
  EXPECT_EQ(report.rows->comparison, ReportRowCondition::Operator::NotEqual);
  EXPECT_EQ(report.rows->number, -0.5);
}

TEST(ReportFile, Cells_have_their_text_their_values_and_their_looks) {
  const ReportTemplate report = ParseReportTemplate(
      "band row  # once a row\n"
      "line 7\n"
      "cell 10 \"a \\\"{Name}\\\" # {sum Amount}\" center bold box shade rule size 12 number 3\n"
      "cell * code left\n"
      "cell 30\n",
      "a.rpt");
  const ReportLine& line = report.Band(ReportBandKind::Row).lines.at(0);
  ASSERT_EQ(line.cells.size(), 3U);
  const ReportCell& cell = line.cells[0];
  ASSERT_EQ(cell.pieces.size(), 4U);
  EXPECT_EQ(cell.pieces[0].text, "a \"");
  EXPECT_EQ(cell.pieces[1].text, "Name");
  EXPECT_TRUE(cell.pieces[1].isValue);
  EXPECT_EQ(cell.pieces[2].text, "\" # ");
  EXPECT_EQ(cell.pieces[3].text, "sum Amount");
  EXPECT_EQ(cell.align, ReportAlign::Center);
  EXPECT_TRUE(cell.bold && cell.boxed && cell.shaded && cell.ruled);
  EXPECT_EQ(cell.fontSize, 12);
  EXPECT_EQ(cell.decimals, 3);
  EXPECT_TRUE(line.cells[1].code);
  EXPECT_EQ(line.cells[1].align, ReportAlign::Left);
  EXPECT_EQ(line.cells[1].width, 150) << "what the others leave of 210 less the margins";
  EXPECT_TRUE(line.cells[2].pieces.empty());
}

TEST(ReportFile, An_error_is_reported_with_file_line_and_reason) {
  struct Mistake {
    std::string text;
    std::string place;
    std::string reason;
  };
  const std::string row = "band row\nline 7\ncell 10 \"x\"\n";
  const std::vector<Mistake> mistakes = {
      {row + "cel 10", "سطر 4", "cel"},
      {"page A9\n" + row, "سطر 1", "A9"},
      {"page A4 upright\n" + row, "سطر 1", "upright"},
      {"margins 10 10 10\n" + row, "سطر 1", "حاشيه"},
      {"margins 10 10 10 ten\n" + row, "سطر 1", "ten"},
      {"margins 10 150 10 150\n" + row, "سطر 1", "جايي نمي ماند"},
      {"font 200\n" + row, "سطر 1", "قلم"},
      {"digits roman\n" + row, "سطر 1", "roman"},
      {"name list\n" + row, "سطر 1", "نام گزارش"},
      {"rows Amount ~ 3\n" + row, "سطر 1", "~"},
      {"rows Amount = many\n" + row, "سطر 1", "many"},
      {"band rows", "سطر 1", "rows"},
      {row + "band row\n", "سطر 4", "پيش از اين"},
      {"line 7", "سطر 1", "بيرون از بخش"},
      {"band row\ncell 10", "سطر 2", "بيرون از سطر"},
      {"band row\nline 0\n", "سطر 2", "صفر"},
      {"band row\nline 7\ncell 10 \"x", "سطر 3", "بسته نشده"},
      {"band row\nline 7\ncell 10 \"{x\"", "سطر 3", "{"},
      {"band row\nline 7\ncell 10 \"{}\"", "سطر 3", "{"},
      {"band row\nline 7\ncell 10 \"x\" bolt", "سطر 3", "bolt"},
      {"band row\nline 7\ncell 10 \"x\" number 2.5", "سطر 3", "اعشار"},
      {"band row\nline 7\ncell * \"x\"\ncell * \"y\"", "سطر 4", "*"},
      {"band row\nline 7\ncell 150\ncell 50\n", "سطر 2", "پهناي كاغذ"},
      {"page A4 landscape 7\n" + row, "سطر 1", "«7» زيادي"},
      {"", "a.rpt", "row"},
  };
  for (const Mistake& mistake : mistakes) {
    try {
      static_cast<void>(ParseReportTemplate(mistake.text, "a.rpt"));
      ADD_FAILURE() << "accepted: " << mistake.text;
    } catch (const InputError& failure) {
      const std::string what = failure.what();
      EXPECT_NE(what.find("a.rpt"), std::string::npos) << what;
      EXPECT_NE(what.find(mistake.place), std::string::npos) << mistake.text << "\n" << what;
      EXPECT_NE(what.find(mistake.reason), std::string::npos) << mistake.text << "\n" << what;
    }
  }
}

}  // namespace
}  // namespace koru
