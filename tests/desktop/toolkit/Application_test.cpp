#include "desktop/toolkit/Application.h"

#include <gtest/gtest.h>

#include <QLabel>
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

}  // namespace
}  // namespace koru
