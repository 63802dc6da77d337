#include "desktop/report/DesktopReportPrinter.h"

#include <QApplication>
#include <fstream>

#include "desktop/report/ReportPreview.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/report/ReportDesk.h"
#include "tests/desktop/report/ReportSamples.h"

namespace koru {
namespace {

using test::TextsOf;

class ReportPrinterOnTheDesktop : public test::ReportDesk {
 protected:
  void WriteTemplate(const std::string& text) {
    std::ofstream(folder.File("a.rpt.txt")) << text;
    printer.SetReportFileName(folder.File("a.rpt.txt"));
  }

  /// The previews that are open.
  static std::vector<ReportPreview*> Previews() {
    std::vector<ReportPreview*> open;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      auto* const preview = qobject_cast<ReportPreview*>(window);
      if (preview != nullptr && preview->isVisible()) open.push_back(preview);
    }
    return open;
  }
};

TEST_F(ReportPrinterOnTheDesktop, The_query_goes_to_the_database_as_it_came) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{GoodName} {fmlCompanyName}\"\n");
  const auto report = printer.Prepare();
  EXPECT_EQ(TextsOf(*report, 0, ReportBandKind::Row), "نان شركت آفتاب|");
  EXPECT_EQ(recording.Statements(),
            test::StatementLog{"SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"});
  EXPECT_EQ(recording.ConnectionTexts(), std::vector<std::string>{database.ConnectionText()});
}

TEST_F(ReportPrinterOnTheDesktop, The_preview_opens_beside_the_program_and_goes_when_it_is_closed) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{GoodName}\"\n");
  printer.Show();
  ASSERT_EQ(Previews().size(), 1U);
  ASSERT_TRUE(QTest::qWaitForWindowActive(Previews()[0]));
  test::Press(Qt::Key_Escape);
  EXPECT_TRUE(Previews().empty());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(ReportPrinterOnTheDesktop,
       The_preview_is_called_what_the_report_says_with_the_number_of_the_counting) {
  const auto titleOf = [this](const std::string& file) {
    WriteTemplate(file + "band row\nline 6\ncell *\n");
    printer.Show();
    QString title = Previews().at(0)->windowTitle();
    Previews()[0]->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return title.toStdString();
  };
  EXPECT_EQ(titleOf("name \"گزارش شمارش انبار {ID}\"\n"), "گزارش شمارش انبار") << "no lines, no number";
  AddLine("1", "نان", 1, 2, 3);
  EXPECT_EQ(titleOf("name \"گزارش شمارش انبار {ID}\"\n"), "گزارش شمارش انبار 1");
  EXPECT_EQ(titleOf("name \"a/b: {fmlCompanyName}\"\n"), "a-b- شركت آفتاب") << "as a file can be called";
  EXPECT_EQ(titleOf(""), "مشاهده گزارش");
  EXPECT_THROW(titleOf("name \"{NoSuchColumn}\"\n"), InputError);
}

TEST_F(ReportPrinterOnTheDesktop, Above_a_modal_window_the_preview_can_be_used) {
  WriteTemplate("band row\nline 6\ncell *\n");
  QWidget form;
  form.setWindowModality(Qt::ApplicationModal);
  test::Open(form);
  printer.Show();
  ASSERT_EQ(Previews().size(), 1U);
  EXPECT_EQ(Previews()[0]->parentWidget(), &form) << "a window of its own would be blocked";
}

TEST_F(ReportPrinterOnTheDesktop, A_report_file_that_is_not_there_is_an_error_that_names_it) {
  printer.SetReportFileName("/no such folder/x.rpt.txt");
  try {
    printer.Show();
    FAIL() << "no failure";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find("/no such folder/x.rpt.txt"), std::string::npos);
  }
  EXPECT_TRUE(Previews().empty());
}

TEST_F(ReportPrinterOnTheDesktop, A_query_that_fails_is_the_databases_failure) {
  WriteTemplate("band row\nline 6\ncell *\n");
  printer.SetSQLQuery(SqlText("select * from vwNoSuchView"));
  EXPECT_THROW(printer.Show(), DatabaseError);
}

TEST_F(ReportPrinterOnTheDesktop, A_typed_text_that_leaves_its_literal_is_refused_and_nothing_is_sent) {
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
  EXPECT_TRUE(Previews().empty());
  ask("نان");
  ASSERT_EQ(Previews().size(), 1U);
  Previews()[0]->close();
}

TEST_F(ReportPrinterOnTheDesktop, Formulas_replace_those_of_the_same_number) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{fmlCompanyName}\"\n");
  const auto shown = [&](const std::string& formula) {
    printer.SetFormula(1, formula);
    return TextsOf(*printer.Prepare(), 0, ReportBandKind::Row);
  };
  EXPECT_EQ(shown("fmlCompanyName='A'"), "A|");
  EXPECT_EQ(shown("fmlCompanyName=''"), "|");
  EXPECT_EQ(shown("fmlCompanyName='O'Neil'"), "O'Neil|");
  EXPECT_THROW(shown("fmlCompanyName=A"), InputError);
  EXPECT_THROW(shown("fmlOther='A'"), InputError) << "the report shows fmlCompanyName";
}

}  // namespace
}  // namespace koru
