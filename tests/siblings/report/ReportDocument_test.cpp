#include "siblings/report/ReportDocument.h"

#include <gtest/gtest.h>

#include "platform/text/Errors.h"
#include "tests/siblings/report/ReportSamples.h"

namespace koru {
namespace {

using test::Bare;
using test::TextsOf;

/// The text that a row's cell with the template text shows for the given records and formulas.
std::string Shown(const std::string& cell, Recordset records, ReportFormulas formulas = {},
                  const std::string& settings = "digits latin\n") {
  const ReportDocument report(
      ParseReportTemplate(settings + "band row\nline 5\ncell * " + cell + "\n", "a.rpt"), std::move(records),
      std::move(formulas));
  const ReportCell& only = report.Template().Band(ReportBandKind::Row).lines[0].cells[0];
  return report.CellText(only, report.Pages().at(0).bands.at(0), 0);
}

TEST(ReportTexts, Fields_sums_counts_and_pages_appear_where_the_template_names_them) {
  const ReportDocument report(test::SmallTemplate("digits latin\n"), test::Records(40), {});
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Title), "list|");
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Row).substr(0, 24), "1|good 1|1|2|good 2|2|3|");
  EXPECT_EQ(TextsOf(report, 3, ReportBandKind::Row), "39|good 39|39|40|good 40|40|");
  EXPECT_EQ(TextsOf(report, 3, ReportBandKind::Summary), "820|");
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Footer), "1/4|");
  EXPECT_EQ(TextsOf(report, 3, ReportBandKind::Footer), "4/4|");
}

TEST(ReportTexts, Rows_that_the_condition_refuses_are_neither_printed_nor_summed) {
  const ReportDocument report(test::SmallTemplate("digits latin\nrows amount > 38\n"), test::Records(40), {});
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Row), "1|good 39|39|2|good 40|40|");
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Summary), "79|");
}

TEST(ReportTexts, A_row_carries_its_place_in_the_order_of_another_column) {
  Recordset records({"Line"});
  for (const int line : {40, 10, 30, 20}) records.AppendInteger(line);
  const ReportDocument report(
      ParseReportTemplate("digits latin\nrows Line <> 10\nband title\nline 5\ncell * \"{rank Line}\"\n"
                          "band row\nline 5\ncell 20 \"{row}\"\ncell * \"{rank Line}\"\n",
                          "a.rpt"),
      records, {});
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Row), "1|4|2|3|3|2|") << "among all rows, also those left out";
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Title), "|") << "outside of rows there is none";
}

TEST(ReportTexts, A_missing_quantity_is_no_difference) {
  Recordset records({"Difference"});
  records.AppendNull();
  records.AppendReal(0);
  records.AppendReal(-0.5);
  records.AppendReal(2);
  const auto rows = [&](const std::string& condition) {
    const ReportDocument report(
        ParseReportTemplate("rows Difference " + condition + "\nband row\nline 5\ncell *\n", "a.rpt"),
        records, {});
    return report.Pages().at(0).bands.size();
  };
  EXPECT_EQ(rows("<> 0"), 2U);
  EXPECT_EQ(rows("= 0"), 2U);
  EXPECT_EQ(rows("< 0"), 1U);
  EXPECT_EQ(rows("> 0"), 1U);
  EXPECT_EQ(rows("<= 0"), 3U);
  EXPECT_EQ(rows(">= 0"), 3U);
}

TEST(ReportTexts, Numbers_are_grouped_and_what_is_missing_stays_empty) {
  Recordset records({"Amount", "Missing"});
  records.AppendReal(-1234567.8915);
  records.AppendNull();
  EXPECT_EQ(Bare(Shown("\"{Amount}\" number 3", records)), "-1,234,567.892");
  EXPECT_EQ(Bare(Shown("\"{Amount}\"", records)), "-1234567.8915");
  EXPECT_EQ(Shown("\"{Missing}\" number 3", records), "");
  EXPECT_EQ(Bare(Shown("\"{sum Missing}\" number 3", records)), "0");
}

TEST(ReportTexts, Digits_are_persian_but_codes_keep_theirs) {
  Recordset records({"Barcode", "Amount", "Name"});
  records.AppendText("6260001");
  records.AppendReal(1234.5);
  records.AppendText("روغن 810 گرمي");
  EXPECT_EQ(Shown("\"{Barcode}\" code", records, {}, ""), "6260001");
  EXPECT_EQ(Bare(Shown("\"{Amount}\" number 2", records, {}, "")), "۱٬۲۳۴٫۵");
  EXPECT_EQ(Bare(Shown("\"{Name} 5\"", records, {}, "")), "روغن ۸۱۰ گرمي ۵");
  EXPECT_EQ(Bare(Shown("\"{Name}\"", records)), "روغن 810 گرمي");
}

TEST(ReportTexts, A_value_does_not_move_the_words_around_it) {
  Recordset records({"ManualCode", "Nothing"});
  records.AppendText("1-2");
  records.AppendText("");
  EXPECT_EQ(Shown("\"شماره: {ManualCode}\"", records),
            "شماره: \u2068"
            "1-2\u2069");
  EXPECT_EQ(Shown("\"شماره: {Nothing}\"", records), "شماره: ");
}

TEST(ReportTexts, Formulas_come_before_columns_and_may_hold_anything) {
  Recordset records({"Name"});
  records.AppendText("column");
  EXPECT_EQ(Bare(Shown("\"{Name}\"", records, {{"Name", "O'Neil & \"{x}\""}})), "O'Neil & \"{x}\"");
}

TEST(ReportTexts, A_missing_value_is_reported_with_its_line) {
  try {
    const ReportDocument report(ParseReportTemplate("band row\nline 5\n\ncell * \"{Colour}\"\n", "a.rpt"),
                                test::Records(1), {});
    FAIL() << "accepted";
  } catch (const InputError& failure) {
    const std::string what = failure.what();
    EXPECT_NE(what.find("a.rpt"), std::string::npos);
    EXPECT_NE(what.find("سطر 4"), std::string::npos);
    EXPECT_NE(what.find("Colour"), std::string::npos);
  }
  EXPECT_THROW(ReportDocument(test::SmallTemplate("rows Colour = 1\n"), test::Records(1), {}), InputError);
}

TEST(ReportTexts, Without_records_the_page_is_there_and_its_values_are_empty) {
  const ReportDocument report(test::SmallTemplate("digits latin\n"), test::Records(0), {});
  ASSERT_EQ(report.Pages().size(), 1U);
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Title), "|");
  EXPECT_EQ(TextsOf(report, 0, ReportBandKind::Summary), "0|");
}

}  // namespace
}  // namespace koru
