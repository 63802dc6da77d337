#include "output/ViewReport.h"

#include <gtest/gtest.h>

#include <set>

#include "output/frmReport.h"
#include "platform/ports/ComponentError.h"
#include "platform/text/Errors.h"
#include "tests/registration/DocumentsTest.h"

namespace koru {
namespace {

/// What the report printer was given, in order; outlives the printer.
struct PrinterLog {
  Texts calls;
  std::string note;
  std::function<void()> onShow;
};

class LoggingPrinter : public ReportPrinter {
 public:
  explicit LoggingPrinter(PrinterLog& log) : log_(log) {}

  void SetReportFileName(const std::string& name) override { log_.calls.push_back("file " + name); }
  void SetConnectionString(const std::string& text) override { log_.calls.push_back("connection " + text); }
  void SetSQLQuery(const SqlText& query) override { log_.calls.push_back("query " + query.Text()); }
  void SetFormula(int number, const std::string& formula) override {
    log_.calls.push_back("formula " + std::to_string(number) + " " + formula);
  }
  void SetNote(const std::string& note) override { log_.note = note; }
  void Show() override {
    log_.calls.emplace_back("show");
    if (log_.onShow) log_.onShow();
  }

 private:
  PrinterLog& log_;
};

class ViewingAReport : public DocumentsTest {
 protected:
  ViewingAReport() {
    components.Register(std::string(ReportPrinter::kClassName), [this] {
      ++made;
      return std::make_unique<LoggingPrinter>(printer);
    });
    Execute(
        "insert into tblPelinReportTemplate values (5, 806, 'با مبلغ', 'reports/a.rpt'), "
        "(6, 700, 'رسيد', 'reports/b.rpt'), (7, 806, 'مغايرتها', '/full/c.rpt')");
    Execute("insert into tblPelinCompany values (1, 'شركت آفتاب', '/base/')");
    form.lblIDVal.SetCaption("12");
    view.ReadBaseFolder();
    StartRecording();
  }

  /// Chooses the first or second template by its key, and presses a button of the chooser.
  void WillChoose(int index, const char* button = "cmdPrint") {
    screen.OnModal = [=](Form& shown) {
      auto& chooser = dynamic_cast<frmReport&>(shown);
      const int key = index == 0 ? 5 : 7;
      const bool isFirst = chooser.cmbReport.Items().at(0).itemData == key;
      chooser.cmbReport.UserChoose(isFirst ? 0 : 1);  // the database gives them in any order
      dynamic_cast<Button&>(*chooser.Find(button)).UserClick();
    };
  }

  PrinterLog printer;
  int made = 0;
  ViewReport view{form, shared};
};

TEST_F(ViewingAReport, The_preview_says_when_the_form_shows_something_that_is_not_stored) {
  WillChoose(0);
  view.Run(false);
  EXPECT_NE(printer.note.find("ذخيره نشده"), std::string::npos);
  view.Run(true);
  EXPECT_EQ(printer.note, "");
}

TEST_F(ViewingAReport, The_printer_gets_file_connection_query_and_company_in_this_order) {
  WillChoose(0);
  bool readyWhileShown = true;
  Cursor pointerWhileShown = Cursor::Normal;
  printer.onShow = [&] {
    readyWhileShown = view.Ready();
    pointerWhileShown = screen.CurrentCursor();
  };
  view.Run();
  EXPECT_EQ(printer.calls,
            (Texts{"file ", "file reports/a.rpt", "file /base/reports/a.rpt",
                   "connection " + database.ConnectionText(),
                   "query SELECT * From vwInventoryCountingPrint Where ID=12 order by GoodCode",
                   "formula 1 fmlCompanyName='شركت آفتاب'", "show"}));
  EXPECT_EQ(Sent(), (Texts{"Select * from tblPelinReportTemplate where FormTypeID = 806",
                           "Select * From tblPelinReportTemplate Where ID = 5",
                           "Select top 1 Name from vwPelinCompany"}));
  EXPECT_FALSE(readyWhileShown);
  EXPECT_TRUE(view.Ready());
  EXPECT_EQ(pointerWhileShown, Cursor::Hourglass);
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(ViewingAReport, The_chooser_is_modal_lists_the_countings_templates_and_is_called_viewing) {
  std::set<std::string> titles;
  std::string heading;
  screen.OnModal = [&](Form& shown) {
    auto& chooser = dynamic_cast<frmReport&>(shown);
    heading = chooser.Caption();
    for (const ComboBox::Item& item : chooser.cmbReport.Items()) titles.insert(item.text);
    EXPECT_EQ(chooser.cmbReport.ListIndex(), 0);
  };
  view.Run();
  ASSERT_EQ(screen.Shown().size(), 1U);
  EXPECT_EQ(screen.Shown()[0].form, "frmReport");
  EXPECT_TRUE(screen.Shown()[0].modal);
  EXPECT_EQ(heading, "مشاهده");
  EXPECT_EQ(titles, (std::set<std::string>{"با مبلغ", "مغايرتها"}));
}

TEST_F(ViewingAReport, A_path_that_exists_is_taken_as_it_is) {
  files.paths = {"/full/c.rpt"};
  WillChoose(1, "cmdOk");
  view.Run();
  ASSERT_GE(printer.calls.size(), 3U);
  EXPECT_EQ(printer.calls[1], "file /full/c.rpt");
  EXPECT_EQ(printer.calls[2], "connection " + database.ConnectionText());
}

TEST_F(ViewingAReport, The_base_folder_is_put_before_the_path_without_a_separator) {
  Execute("update tblPelinCompany set BasePath = '/base'");
  view.ReadBaseFolder();
  WillChoose(0);
  view.Run();
  ASSERT_GE(printer.calls.size(), 3U);
  EXPECT_EQ(printer.calls[2], "file /basereports/a.rpt");
}

TEST_F(ViewingAReport, Closing_the_chooser_shows_nothing_and_clears_the_file_of_the_report_before) {
  WillChoose(0);
  view.Run();
  printer.calls.clear();
  screen.OnModal = nullptr;
  view.Run();
  EXPECT_EQ(printer.calls, (Texts{"file ", "file "}));
  EXPECT_EQ(made, 1);
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(ViewingAReport, Without_a_template_no_chooser_opens_and_nothing_is_said) {
  Execute("delete from tblPelinReportTemplate where FormTypeID = 806");
  view.Run();
  EXPECT_TRUE(screen.Shown().empty());
  EXPECT_EQ(printer.calls, (Texts{"file ", "file "}));
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(ViewingAReport, No_chosen_template_is_an_error_and_the_chooser_stays_open) {
  screen.OnModal = [this](Form& shown) {
    auto& chooser = dynamic_cast<frmReport&>(shown);
    chooser.cmbReport.UserChoose(-1);
    chooser.cmdOk.UserClick();
    EXPECT_TRUE(chooser.Visible());
    EXPECT_EQ(chooser.Focus(), &chooser.cmbReport);
    EXPECT_EQ(chooser.ChosenFilePath(), "");
    EXPECT_EQ(NewTitledMessages(), Texts{"خطا: قالب گزارش مشخص نيست."});
  };
  view.Run();
  EXPECT_EQ(printer.calls, (Texts{"file ", "file "}));
}

TEST_F(ViewingAReport, A_template_without_a_file_shows_nothing) {
  Execute("update tblPelinReportTemplate set FilePath = NULL where ID = 5");
  WillChoose(0);
  view.Run();
  EXPECT_EQ(printer.calls, (Texts{"file ", "file "}));
}

TEST_F(ViewingAReport, An_apostrophe_in_the_companys_name_is_not_doubled) {
  Execute("update tblPelinCompany set Name = 'O''Neil'");
  WillChoose(0);
  view.Run();
  ASSERT_EQ(printer.calls.size(), 7U);
  EXPECT_EQ(printer.calls[5], "formula 1 fmlCompanyName='O'Neil'");
}

TEST_F(ViewingAReport, A_suite_without_a_company_has_an_empty_formula) {
  Execute("delete from tblPelinCompany");
  WillChoose(0);
  view.Run();
  ASSERT_EQ(printer.calls.size(), 7U);
  EXPECT_EQ(printer.calls[5], "formula 1 fmlCompanyName=''");
}

TEST_F(ViewingAReport, A_form_without_a_counting_asks_for_the_lines_of_0) {
  form.lblIDVal.SetCaption("");
  WillChoose(0);
  view.Run();
  ASSERT_EQ(printer.calls.size(), 7U);
  EXPECT_EQ(printer.calls[4], "query SELECT * From vwInventoryCountingPrint Where ID=0 order by GoodCode");
}

TEST_F(ViewingAReport, A_missing_report_printer_fails_with_429_before_anything_is_asked) {
  components.Unregister(ReportPrinter::kClassName);
  try {
    view.Run();
    FAIL() << "no failure";
  } catch (const ComponentError& failure) {
    EXPECT_EQ(failure.Code(), 429);
  }
  EXPECT_TRUE(screen.Shown().empty());
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(ViewingAReport, A_report_that_fails_leaves_the_form_ready_and_the_pointer_normal) {
  WillChoose(0);
  printer.onShow = [] { throw InputError("no such file"); };
  EXPECT_THROW(view.Run(), InputError);
  EXPECT_TRUE(view.Ready());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

TEST_F(ViewingAReport, A_database_failure_in_the_chooser_is_reported_there_and_chooses_nothing) {
  screen.OnModal = [this](Form& shown) {
    failing.Plan().FailAt(1);
    dynamic_cast<frmReport&>(shown).cmdPrint.UserClick();
    EXPECT_TRUE(shown.Visible());
  };
  view.Run();
  ASSERT_EQ(messages.Texts().size(), 1U);
  EXPECT_NE(messages.Texts()[0].find(test::FaultPlan::kServerText), std::string::npos);
  EXPECT_EQ(printer.calls, (Texts{"file ", "file "}));
}

}  // namespace
}  // namespace koru
