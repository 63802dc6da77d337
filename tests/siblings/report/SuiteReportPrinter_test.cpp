#include "siblings/report/SuiteReportPrinter.h"

#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/siblings/report/ReportDesk.h"
#include "tests/siblings/report/ReportSamples.h"

namespace koru {
namespace {

using test::TextsOf;
using SuiteReportPrinterTest = test::ReportDesk;

TEST_F(SuiteReportPrinterTest, The_query_is_sent_as_it_came) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{GoodName} {fmlCompanyName}\"\n");
  const auto report = printer.Prepare();
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row), "نان شركت آفتاب|");
  EXPECT_EQ(recording.Statements(),
            test::StatementLog{"SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"});
  EXPECT_EQ(recording.ConnectionTexts(), std::vector<std::string>{database.ConnectionText()});
}

TEST_F(SuiteReportPrinterTest, A_report_file_that_is_not_there_is_an_error_that_names_it) {
  printer.SetReportFileName("/no such folder/x.rpt.txt");
  try {
    printer.Show();
    FAIL() << "no failure";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find("/no such folder/x.rpt.txt"), std::string::npos);
  }
  EXPECT_TRUE(shown.empty());
}

TEST_F(SuiteReportPrinterTest, A_folder_in_the_place_of_the_report_file_is_named_with_the_reason) {
  printer.SetReportFileName(folder.Path().string());
  try {
    printer.Show();
    FAIL() << "no failure";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find("پرونده خوانده نشد (Is a directory)"), std::string::npos)
        << failure.what();
  }
}

TEST_F(SuiteReportPrinterTest, A_query_that_fails_is_the_databases_failure) {
  WriteTemplate("band row\nline 6\ncell *\n");
  printer.SetSQLQuery(SqlText("select * from vwNoSuchView"));
  EXPECT_THROW(printer.Show(), DatabaseError);
}

TEST_F(SuiteReportPrinterTest, A_typed_text_that_leaves_its_literal_is_refused_and_nothing_is_sent) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{GoodName}\"\n");
  const auto ask = [&](const char* name) {
    printer.SetSQLQuery(SqlText("select GoodName from vwInventoryCountingPrint where GoodName='") +
                        Typed(name) + "'");
    printer.Show();
  };
  EXPECT_THROW(ask("x' or '1'='1"), DatabaseError);
  EXPECT_TRUE(recording.Statements().empty());
  EXPECT_TRUE(recording.ConnectionTexts().empty());
  EXPECT_TRUE(shown.empty());
  ask("نان");
  EXPECT_EQ(shown.size(), 1U);
}

TEST_F(SuiteReportPrinterTest, Formulas_replace_those_of_the_same_number) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{fmlCompanyName}\"\n");
  const auto rows = [&](const std::string& formula) {
    printer.SetFormula(1, formula);
    return TextsOf(*printer.Prepare(), 0, ReportBandKind::Row);
  };
  EXPECT_EQ(rows("fmlCompanyName='A'"), "A|");
  EXPECT_EQ(rows("fmlCompanyName=''"), "|");
  EXPECT_EQ(rows("fmlCompanyName='O'Neil'"), "O'Neil|");
  EXPECT_THROW(rows("fmlCompanyName=A"), InputError);
  EXPECT_THROW(rows("fmlOther='A'"), InputError) << "the report shows fmlCompanyName";
}

}  // namespace
}  // namespace koru
