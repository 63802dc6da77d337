#include "desktop/manual/ManualWindow.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFragment>
#include <QTextTable>
#include <QToolButton>
#include <fstream>

#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/QtText.h"
#include "tests/desktop/Contrast.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

class ManualWindowTest : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& body) {
    std::ofstream(folder_.Path() / name) << "<html dir=\"rtl\"><head><meta charset=\"utf-8\"><title>" << name
                                         << "</title></head><body dir=\"rtl\">" << body << "</body></html>";
  }
  /// The manual, showing a page.
  ManualWindow& Open(const QString& page) {
    if (window_ == nullptr)
      window_ = std::make_unique<ManualWindow>(
          ToQt(folder_.Path().string()), [](const std::string&) {}, nullptr);
    window_->setAttribute(Qt::WA_DeleteOnClose, false);
    window_->Show(page);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    return *window_;
  }
  [[nodiscard]] ManualPage& Page() const { return *window_->findChild<ManualPage*>(); }

  test::TemporaryFolder folder_;
  std::unique_ptr<ManualWindow> window_;
};

TEST_F(ManualWindowTest, The_title_names_the_page) {
  Write("a.html", "");
  EXPECT_EQ(Open("a.html").windowTitle(), QStringLiteral("راهنماي شمارش انبار - a.html"));
}

TEST_F(ManualWindowTest, The_pages_are_white_paper_on_a_dark_desktop_too) {
  SetColors(*qApp, test::DesktopPalette(true));
  Write("a.html", "<p style='color: #1b2635'>شمارش</p><p>انبار</p>");
  Open("a.html");
  const test::Grounds shown = test::GroundsOf(Page().viewport()->grab().toImage());
  SetColors(*qApp, test::DesktopPalette(false));
  EXPECT_EQ(shown.ground, QColor(Qt::white));
  EXPECT_GE(test::Contrast(shown.text, shown.ground), 4.5);
}

TEST_F(ManualWindowTest, A_table_begins_at_the_right) {
  Write("a.html", "<table><tr><th>یک</th><th>دو</th></tr>\n<tr><td>۱</td><td>۲</td></tr></table>");
  Open("a.html");
  const auto* const table = qobject_cast<QTextTable*>(Page().document()->rootFrame()->childFrames().at(0));
  ASSERT_NE(table, nullptr);
  ASSERT_EQ(table->rows(), 2);
  ASSERT_EQ(table->columns(), 2);
  EXPECT_EQ(table->cellAt(0, 1).firstCursorPosition().block().text(), QStringLiteral("یک"));
  EXPECT_EQ(table->cellAt(1, 0).firstCursorPosition().block().text(), QStringLiteral("۲"));
}

TEST_F(ManualWindowTest, The_first_letter_of_a_heading_with_an_anchor_is_joined_to_the_next_one) {
  Write("a.html", "<p>آ</p><h2 id=\"x\">بخش</h2>");
  Open("a.html#x");
  const QTextBlock heading = Page().document()->lastBlock();
  EXPECT_EQ(heading.blockFormat().headingLevel(), 2);
  const QTextFragment anchor = heading.begin().fragment();
  EXPECT_EQ(anchor.charFormat().anchorNames(), QStringList("x"));
  EXPECT_EQ(anchor.text(), QStringLiteral("\u200F")) << "a format of its own splits what is joined";
}

TEST_F(ManualWindowTest, Keys_and_code_keep_their_order_in_a_sentence) {
  Write("a.html", "<p>با <code>--size</code> و <kbd>Ctrl++</kbd>، <kbd>F1</kbd></p>");
  Open("a.html");
  EXPECT_EQ(Page().document()->lastBlock().text(),
            QStringLiteral("با \u200F\u200E--size\u200E\u200F و \u200F\u200ECtrl++\u200E\u200F، "
                           "\u200F\u200EF1\u200E\u200F"));
}

TEST_F(ManualWindowTest, A_picture_is_as_wide_as_the_page_at_most_and_follows_the_window) {
  QImage(1400, 400, QImage::Format_RGB32).save(ToQt((folder_.Path() / "wide.png").string()));
  Write("a.html", "<p><img src=\"wide.png\"></p>");
  ManualWindow& manual = Open("a.html");
  for (const int width : {1000, 700, 1200}) {
    manual.resize(width, 600);
    QApplication::processEvents();
    EXPECT_EQ(Page().horizontalScrollBar()->maximum(), 0) << width;
    EXPECT_GT(Page().document()->size().width(), width * 0.9) << width;
  }
}

TEST_F(ManualWindowTest, Back_returns_to_the_page_before) {
  Write("a.html", "");
  Write("b.html", "");
  auto* const back = Open("a.html").findChild<QToolButton*>("back");
  EXPECT_FALSE(back->isEnabled());
  Open("b.html");
  back->click();
  EXPECT_EQ(Page().source().fileName(), "a.html");
}

TEST_F(ManualWindowTest, A_search_continues_at_the_beginning_after_the_last_place) {
  Write("a.html", "<p>رسید</p><p>خروج</p><p>رسید</p>");
  auto& searched = *Open("a.html").findChild<QLineEdit*>("searched");
  test::Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(searched.hasFocus());
  searched.setText(QStringLiteral("رسید"));
  std::vector<int> blocks;
  for (int i = 0; i < 3; ++i) {
    test::Press(Qt::Key_Return);
    blocks.push_back(Page().textCursor().blockNumber());
  }
  EXPECT_EQ(blocks, (std::vector<int>{0, 2, 0}));
}

}  // namespace
}  // namespace koru
