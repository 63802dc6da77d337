#include "desktop/report/ReportPreview.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QProgressDialog>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>

#include "desktop/toolkit/QtText.h"
#include "tests/desktop/WindowTools.h"
#include "tests/siblings/report/ReportSamples.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

class Preview : public ::testing::Test {
 protected:
  explicit Preview(std::size_t rows = 40)
      : window(*new ReportPreview(
            std::make_unique<ReportDocument>(test::SmallTemplate(), test::Records(rows), ReportFormulas()),
            QStringLiteral("گزارش"), [this](const std::string& sentence) { failures.push_back(sentence); },
            nullptr)) {
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    owner.reset(&window);
    test::Open(window);
  }

  [[nodiscard]] QSpinBox& Page() { return *window.findChild<QSpinBox*>(QStringLiteral("page")); }
  void Click(const char* tool) { window.findChild<QToolButton*>(QLatin1String(tool))->click(); }

  std::vector<std::string> failures;
  std::unique_ptr<ReportPreview> owner;
  ReportPreview& window;
  test::TemporaryFolder folder;
};

TEST_F(Preview, Runs_from_right_to_left_and_begins_on_page_1_as_wide_as_the_window) {
  EXPECT_EQ(window.layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(window.View().layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(Page().value(), 1);
  EXPECT_EQ(Page().maximum(), 4);
  EXPECT_EQ(window.View().horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(window.View().verticalScrollBar()->value(), 0);
  EXPECT_GT(window.View().Zoom(), 1.0);
  window.resize(1200, 700);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.View().verticalScrollBar()->value(), 0);
}

TEST(PreviewNote, Is_shown_above_the_pages) {
  auto report = std::make_unique<ReportDocument>(test::SmallTemplate(), test::Records(1), ReportFormulas());
  report->SetNote("ذخيره نشده");
  ReportPreview window(
      std::move(report), QStringLiteral("گزارش"), [](const std::string&) {}, nullptr);
  window.setAttribute(Qt::WA_DeleteOnClose, false);
  test::Open(window);
  const auto* const notice = window.findChild<QLabel*>(QStringLiteral("notice"));
  ASSERT_NE(notice, nullptr);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->text().contains(QStringLiteral("ذخيره نشده")));
  EXPECT_LT(notice->geometry().bottom(), window.View().geometry().top());
}

TEST_F(Preview, The_window_around_the_pages_has_their_digits) {
  EXPECT_EQ(Page().text(), QStringLiteral("۱"));
  window.View().SetZoom(1);
  EXPECT_EQ(window.findChild<QLabel*>("zoom")->text(), QStringLiteral("۱۰۰٪"));
  ReportPreview latin(
      std::make_unique<ReportDocument>(test::SmallTemplate("digits latin\n"), test::Records(1),
                                       ReportFormulas()),
      QStringLiteral("گزارش 12"), [](const std::string&) {}, nullptr);
  latin.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_EQ(latin.windowTitle(), QStringLiteral("گزارش 12"));
  EXPECT_EQ(latin.findChild<QSpinBox*>("page")->text(), "1");
}

TEST_F(Preview, A_screen_reader_has_a_name_for_every_input) {
  EXPECT_EQ(test::InputsWithoutName(window), QStringList());
}

TEST_F(Preview, Shows_the_page_that_keys_and_the_page_number_ask_for) {
  test::Press(Qt::Key_PageDown);
  EXPECT_EQ(window.View().CurrentPage(), 1);
  EXPECT_EQ(Page().value(), 2);
  test::Press(Qt::Key_End);
  EXPECT_EQ(Page().value(), 4);
  test::Press(Qt::Key_PageUp);
  EXPECT_EQ(Page().value(), 3);
  test::Press(Qt::Key_Home);
  EXPECT_EQ(Page().value(), 1);
  Page().setValue(4);
  EXPECT_EQ(window.View().CurrentPage(), 3);
}

TEST_F(Preview, Zooms_between_a_quarter_and_four_times_and_keeps_the_page) {
  window.View().GoToPage(2);
  const double before = window.View().Zoom();
  Click("larger");
  EXPECT_GT(window.View().Zoom(), before);
  EXPECT_EQ(window.View().CurrentPage(), 2);
  for (int i = 0; i < 20; ++i) Click("larger");
  EXPECT_EQ(window.View().Zoom(), PageView::kMaxZoom);
  for (int i = 0; i < 40; ++i) Click("smaller");
  EXPECT_EQ(window.View().Zoom(), PageView::kMinZoom);
  Click("fit");
  EXPECT_NEAR(window.View().Zoom(), before, 0.05);
}

TEST_F(Preview, A_page_that_is_wider_than_the_window_shows_its_right_side_first) {
  window.View().SetZoom(3);
  QScrollBar& across = *window.View().horizontalScrollBar();
  EXPECT_GT(across.maximum(), 0);
  const auto edge = [&](bool right) {
    const QImage image = window.View().viewport()->grab().toImage();
    return image.pixelColor(right ? image.width() - 3 : 3, image.height() / 2);
  };
  EXPECT_NE(edge(true), QColor(Qt::white)) << "the ground beside the page";
  EXPECT_EQ(edge(false), QColor(Qt::white));
  across.setValue(across.maximum());
  EXPECT_EQ(edge(true), QColor(Qt::white));
  EXPECT_NE(edge(false), QColor(Qt::white));
}

TEST_F(Preview, Paints_what_is_in_sight) {
  EXPECT_GT(test::PixelsOf(window.View(), Qt::white), 100000);
  test::Press(Qt::Key_End);
  EXPECT_GT(test::PixelsOf(window.View(), Qt::white), 100000);
}

TEST_F(Preview, Saves_a_pdf_and_reports_a_failure) {
  const QString path = ToQt(folder.File("a.pdf"));
  EXPECT_TRUE(window.SavePdf(path));
  EXPECT_TRUE(QFile::exists(path));
  EXPECT_TRUE(failures.empty());
  EXPECT_FALSE(window.SavePdf(ToQt(folder.File("none/a.pdf"))));
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_NE(failures[0].find("none/a.pdf"), std::string::npos);
}

class LongPreview : public Preview {
 protected:
  LongPreview() : Preview(32767) {}
};

TEST_F(LongPreview, Scrolls_to_the_end_of_a_full_counting) {
  test::Press(Qt::Key_End);
  EXPECT_EQ(Page().value(), Page().maximum());
  EXPECT_EQ(Page().maximum(), 2341);
}

TEST_F(LongPreview, Saving_shows_its_progress_and_can_be_cancelled) {
  bool seen = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* const progress = window.findChild<QProgressDialog*>(QStringLiteral("progress"));
    if (progress == nullptr || !progress->isVisible()) return;
    seen = progress->value() > 0 && progress->maximum() == 2341;
    progress->cancel();
  });
  watch.start(10);
  const QString path = ToQt(folder.File("a.pdf"));
  EXPECT_FALSE(window.SavePdf(path));
  EXPECT_TRUE(seen);
  EXPECT_FALSE(QFile::exists(path));
  EXPECT_TRUE(failures.empty());
}

}  // namespace
}  // namespace koru
