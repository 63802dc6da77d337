#include "desktop/manual/Manual.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>
#include <fstream>
#include <iterator>
#include <vector>

#include "desktop/manual/Chapters.h"
#include "desktop/manual/ManualWindow.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

using test::Press;

/// A manual of a few pages, and a window with a field.
class ManualTest : public testing::Test {
 protected:
  ManualTest() {
    for (const char* name : {"index", "counting", "goods", "start", "finding"}) Write(name, "<p>شمارش</p>");
    Write("trouble", "<p>آغاز</p>" + std::string(200, '\n') +
                         "<p>كاربر انتخاب شده در اين انبار مجاز به كار نميباشد.</p>");
    window_.setObjectName(QStringLiteral("frmInvCounting"));
    new QLineEdit(&window_);  // NOLINT: owned by the window
  }

  void Write(const std::string& name, const std::string& body) {
    std::ofstream(folder_.Path() / (name + ".html"))
        << "<html dir=\"rtl\"><head><meta charset=\"utf-8\"></head><body>" << body << "</body></html>";
  }

  /// The manual that is shown; nullptr when there is none.
  static ManualWindow* Shown() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      auto* const manual = qobject_cast<ManualWindow*>(window);
      if (manual != nullptr && manual->isVisible()) return manual;
    }
    return nullptr;
  }
  /// The page that is shown; empty when there is no manual.
  static std::string Page() {
    const ManualWindow* const manual = Shown();
    if (manual == nullptr) return {};
    const QUrl url = manual->findChild<ManualPage*>()->source();
    return (url.fileName() + (url.hasFragment() ? QLatin1Char('#') + url.fragment() : QString()))
        .toStdString();
  }

  test::TemporaryFolder folder_;
  std::vector<std::string> failures_;
  Manual manual_{folder_.Path(), [this](const std::string& sentence) { failures_.push_back(sentence); }};
  QWidget window_;
};

TEST_F(ManualTest, F1_opens_the_chapter_of_the_window) {
  test::Open(window_);
  Press(Qt::Key_F1);
  EXPECT_EQ(Page(), "counting.html");
  EXPECT_TRUE(failures_.empty());
}

TEST_F(ManualTest, F1_in_a_part_that_has_a_chapter_of_its_own_opens_that_chapter) {
  window_.findChild<QLineEdit*>()->setObjectName(QStringLiteral("comInvCounting"));
  test::Open(window_);
  Press(Qt::Key_F1);
  EXPECT_EQ(Page(), "start.html#list");
}

TEST_F(ManualTest, F1_in_a_window_of_the_host_is_left_to_the_host) {
  window_.setObjectName(QStringLiteral("somebodyElses"));
  test::Open(window_);
  Press(Qt::Key_F1);
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_TRUE(failures_.empty());
}

TEST_F(ManualTest, A_missing_manual_is_reported_in_one_sentence) {
  std::filesystem::remove(folder_.Path() / "counting.html");
  test::Open(window_);
  Press(Qt::Key_F1);
  EXPECT_EQ(Shown(), nullptr);
  ASSERT_EQ(failures_.size(), 1U);
  EXPECT_TRUE(failures_[0].starts_with("اين صفحة راهنما نصب نشده است: ")) << failures_[0];
  EXPECT_NE(failures_[0].find((folder_.Path() / "counting.html").string()), std::string::npos);
}

TEST_F(ManualTest, The_goods_search_keeps_F1_for_its_menu_and_F1_in_the_menu_opens_the_manual) {
  window_.setObjectName(QStringLiteral("frmGoodSearch"));
  test::Open(window_);
  Press(Qt::Key_F1);
  EXPECT_EQ(Shown(), nullptr);
  QMenu menu(&window_);
  menu.addAction(QStringLiteral("راهنمايي"));
  menu.popup({});
  QTest::keyClick(&menu, Qt::Key_F1);
  EXPECT_FALSE(menu.isVisible());
  EXPECT_EQ(Page(), "goods.html");
}

TEST_F(ManualTest, The_manual_can_be_used_while_a_dialog_is_open_and_closes_with_it) {
  test::Open(window_);
  Press(Qt::Key_F1);
  ASSERT_NE(Shown(), nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(Shown()));
  {
    QDialog dialog(&window_);
    dialog.setObjectName(QStringLiteral("GrnBPGoodPicker"));
    new QLineEdit(&dialog);  // NOLINT: owned by the dialog
    dialog.setModal(true);
    test::Open(dialog);
    Press(Qt::Key_F1);
    EXPECT_EQ(Page(), "goods.html#picker");
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Shown()->parentWidget(), &dialog);
    ASSERT_TRUE(QTest::qWaitFor([] { return Shown()->isAncestorOf(QApplication::focusWidget()); }));
    Press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Page(), "index.html");
  }
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ManualTest, In_a_message_the_manual_shows_what_it_says_about_it) {
  QDialog dialog;
  dialog.setObjectName(QStringLiteral("comMSG"));
  auto* const text = new QLabel(  // NOLINT: owned by the dialog
      QStringLiteral("كاربر انتخاب شده در اين انبار مجاز به كار نميباشد."), &dialog);
  text->setObjectName(QStringLiteral("message"));
  dialog.setFocusPolicy(Qt::StrongFocus);
  test::Open(dialog);
  dialog.setFocus();
  Press(Qt::Key_F1);
  EXPECT_EQ(Page(), "trouble.html");
  EXPECT_EQ(Shown()->findChild<ManualPage*>()->textCursor().selectedText(), text->text());
}

std::string Content(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ManualChapters, Every_chapter_exists_in_the_manual) {
  for (const Chapter& chapter : Chapters()) {
    const std::string place = chapter.page;
    const std::string page = Content(KORU_SOURCES "/docs/fa/" + place.substr(0, place.find('#')));
    EXPECT_NE(page, "") << place;
    if (place.find('#') == std::string::npos) continue;
    const std::string anchor = "id=\"" + place.substr(place.find('#') + 1) + "\"";
    EXPECT_NE(page.find(anchor), std::string::npos) << place;
  }
}

}  // namespace
}  // namespace koru
