#include "desktop/report/OpenPreview.h"

#include <QApplication>

#include "desktop/report/ReportPreview.h"
#include "platform/text/Errors.h"
#include "tests/desktop/WindowTools.h"
#include "tests/siblings/report/ReportDesk.h"

namespace koru {
namespace {

class OpenPreviewTest : public test::ReportDesk {
 protected:
  /// Shows the report of the printer in a preview.
  void Show() { OpenPreview(printer.Prepare(), {}); }

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

TEST_F(OpenPreviewTest, The_preview_opens_beside_the_program_and_is_removed_when_it_is_closed) {
  AddLine("1", "نان", 1, 2, 3);
  WriteTemplate("band row\nline 6\ncell * \"{GoodName}\"\n");
  Show();
  ASSERT_EQ(Previews().size(), 1U);
  ASSERT_TRUE(QTest::qWaitForWindowActive(Previews()[0]));
  test::Press(Qt::Key_Escape);
  EXPECT_TRUE(Previews().empty());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(OpenPreviewTest, The_preview_is_called_what_the_report_says_with_the_number_of_the_counting) {
  const auto titleOf = [this](const std::string& file) {
    WriteTemplate(file + "band row\nline 6\ncell *\n");
    Show();
    QString title = Previews().at(0)->windowTitle();
    Previews()[0]->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return title.toStdString();
  };
  EXPECT_EQ(titleOf("name \"گزارش شمارش انبار {ID}\"\n"), "گزارش شمارش انبار") << "no lines, no number";
  AddLine("1", "نان", 1, 2, 3);
  EXPECT_EQ(titleOf("name \"گزارش شمارش انبار {ID}\"\n"), "گزارش شمارش انبار ۱")
      << "with the digits of the pages";
  EXPECT_EQ(titleOf("name \"a/b: {fmlCompanyName}\"\n"), "a-b- شركت آفتاب") << "as a file can be called";
  EXPECT_EQ(titleOf(""), "مشاهده گزارش");
  EXPECT_THROW(titleOf("name \"{NoSuchColumn}\"\n"), InputError);
}

TEST_F(OpenPreviewTest, Above_a_modal_window_the_preview_can_be_used) {
  WriteTemplate("band row\nline 6\ncell *\n");
  QWidget form;
  form.setWindowModality(Qt::ApplicationModal);
  test::Open(form);
  Show();
  ASSERT_EQ(Previews().size(), 1U);
  EXPECT_EQ(Previews()[0]->parentWidget(), &form) << "a window of its own would be blocked";
}

}  // namespace
}  // namespace koru
