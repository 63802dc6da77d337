#include "desktop/toolkit/Application.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSpinBox>
#include <QToolTip>
#include <algorithm>
#include <map>

#include "desktop/toolkit/WindowPlace.h"
#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

TEST(LookOfAllWindows, Tooltips_can_be_read) {
  QLabel field(QStringLiteral("تاريخ"));
  test::Open(field);
  QToolTip::showText(field.mapToGlobal(QPoint(0, 0)), QStringLiteral("تاريخ درست را بنويسيد"), &field);
  QWidget* tip = nullptr;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->inherits("QTipLabel") && window->isVisible()) tip = window;
  }
  ASSERT_NE(tip, nullptr);
  const QImage image = tip->grab().toImage();
  std::map<int, int> greys;
  for (int y = 2; y < image.height() - 2; ++y) {
    for (int x = 2; x < image.width() - 2; ++x) ++greys[qGray(image.pixel(x, y))];
  }
  const auto ground =
      std::ranges::max_element(greys, {}, [](const auto& grey) { return grey.second; })->first;
  EXPECT_LT(ground, 80) << "the ground is dark";
  EXPECT_GT(greys.rbegin()->first, 240) << "the letters are white";
}

TEST(LookOfAllWindows, A_window_opens_no_larger_than_the_screen_and_its_frame_allow) {
  EXPECT_EQ(FirstSize(QSize(1280, 760)), QSize(1280, 760));
  const QSize largest = FirstSize(QSize(9000, 9000));
  EXPECT_EQ(largest, QSize(1904, 1036)) << "the test's screen has 1920 x 1080";
}

/// The captions of the context menu that a text box opens.
QStringList CaptionsOf(QMenu* menu) {
  QStringList captions;
  for (const QAction* const entry : menu->actions()) {
    if (!entry->isSeparator()) captions += entry->text().section(u'\t', 0, 0).remove(u'&');
  }
  delete menu;  // NOLINT(cppcoreguidelines-owning-memory): createStandardContextMenu gives it away
  return captions;
}

TEST(LookOfAllWindows, The_menus_of_text_boxes_are_Persian) {
  const QStringList expected{QStringLiteral("برگرداندن"), QStringLiteral("انجام دوباره"),
                             QStringLiteral("برش"),       QStringLiteral("رونوشت"),
                             QStringLiteral("چسباندن"),   QStringLiteral("حذف"),
                             QStringLiteral("انتخاب همه")};
  QLineEdit line;
  EXPECT_EQ(CaptionsOf(line.createStandardContextMenu()).mid(0, 7), expected);
  QPlainTextEdit text;
  EXPECT_EQ(CaptionsOf(text.createStandardContextMenu()).mid(0, 7), expected);
}

TEST(LookOfAllWindows, Numbers_of_the_toolkit_have_the_digits_of_the_forms) {
  QProgressBar bar;
  bar.setValue(42);
  EXPECT_EQ(bar.text(), QStringLiteral("42%"));
  QSpinBox pages;
  pages.setValue(12);
  EXPECT_EQ(pages.text(), QStringLiteral("12"));
}

}  // namespace
}  // namespace koru
