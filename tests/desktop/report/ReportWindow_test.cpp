#include "desktop/report/ReportWindow.h"

#include <QComboBox>
#include <QPushButton>

#include "desktop/forms/DesktopScreen.h"
#include "output/frmReport.h"
#include "services/SharedState.h"
#include "tests/desktop/WindowTools.h"
#include "tests/siblings/report/ReportDesk.h"

namespace koru {
namespace {

class ChooserWindow : public test::ReportDesk {
 protected:
  ChooserWindow() : ReportDesk(test::TestDatabase::Kind::File) {  // templates have no order on a server
    database.Execute(
        "insert into tblPelinReportTemplate (ID, FormTypeID, Title, FilePath) values (5, 806, 'با مبلغ', "
        "'a.rpt'), "
        "(6, 806, 'مغايرتها', 'b.rpt')");
    desktop.Register("frmReport", [](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<ReportWindow>(dynamic_cast<frmReport&>(form));
    });
    shared.data.SetConnectionString(database.ConnectionText());
  }

  /// Shows the chooser modally while `act` runs; returns the selected path.
  std::string Choose(const std::function<void(QWidget&)>& act) {
    frmReport chooser(shared, 806);
    EXPECT_TRUE(chooser.FillReportTemplates());
    chooser.SetHeading("مشاهده");
    test::WhenDialogOpens([&](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), QStringLiteral("مشاهده"));
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      act(window);
    });
    chooser.Show(true);
    return chooser.ChosenFilePath();
  }

  DesktopScreen desktop;
  SharedState shared{ServicesOn(desktop)};
};

TEST_F(ChooserWindow, Enter_takes_the_first_template) {
  EXPECT_EQ(Choose([](QWidget& /*window*/) { test::Press(Qt::Key_Return); }), "a.rpt");
}

TEST_F(ChooserWindow, Both_buttons_take_the_chosen_template) {
  for (const char* const button : {"cmdPrint", "cmdOk"}) {
    EXPECT_EQ(Choose([&](QWidget& window) {
                window.findChild<QComboBox*>()->setFocus();
                QTest::keyClick(window.findChild<QComboBox*>(), Qt::Key_Down);
                QTest::mouseClick(window.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
              }),
              "b.rpt");
  }
}

TEST_F(ChooserWindow, Escape_and_the_frame_take_none) {
  EXPECT_EQ(Choose([](QWidget& /*window*/) { test::Press(Qt::Key_Escape); }), "");
  EXPECT_EQ(Choose([](QWidget& window) { window.close(); }), "");
}

}  // namespace
}  // namespace koru
