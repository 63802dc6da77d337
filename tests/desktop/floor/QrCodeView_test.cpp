#include "desktop/floor/QrCodeView.h"

#include <gtest/gtest.h>
#include <qrencode.h>

#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <memory>

#include "desktop/toolkit/Colors.h"
#include "tests/desktop/Contrast.h"

namespace koru {
namespace {

const QString kUrl = QStringLiteral("http://192.168.1.20:47815/#AbCdEfGhIjKlMnOpQrStUv");

/// The code as it is on the screen: whether each module is dark, with the quiet zone. Fails where a module is
/// not wholly black or white.
std::vector<bool> ModulesOf(QrCodeView& view, int modules) {
  const QImage image = view.grab().toImage();
  const int module = std::min(view.width(), view.height()) / modules;
  const QPoint corner((view.width() - module * modules) / 2, (view.height() - module * modules) / 2);
  std::vector<bool> dark;
  for (int row = 0; row < modules; ++row) {
    for (int col = 0; col < modules; ++col) {
      const QColor color = image.pixelColor(corner + QPoint(col, row) * module);
      for (int y = 0; y < module; ++y) {
        for (int x = 0; x < module; ++x) {
          EXPECT_EQ(image.pixelColor(corner + QPoint(col * module + x, row * module + y)), color);
        }
      }
      EXPECT_TRUE(color == Qt::black || color == Qt::white);
      dark.push_back(color == Qt::black);
    }
  }
  return dark;
}

TEST(QrCodeView, Paints_each_module_of_the_encoder_in_whole_pixels_with_a_quiet_zone) {
  const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
      QRcode_encodeString8bit(kUrl.toUtf8().constData(), 0, QR_ECLEVEL_M), &QRcode_free);
  ASSERT_NE(code, nullptr);
  QrCodeView view;
  view.SetText(kUrl);
  const int modules = code->width + 2 * QrCodeView::kQuietZone;
  EXPECT_EQ(view.minimumSize(), QSize(4 * modules, 4 * modules));
  for (const QSize size : {view.minimumSize(), QSize(300, 251)}) {
    view.resize(size);
    const std::vector<bool> dark = ModulesOf(view, modules);
    for (int row = 0; row < modules; ++row) {
      for (int col = 0; col < modules; ++col) {
        const int r = row - QrCodeView::kQuietZone;
        const int c = col - QrCodeView::kQuietZone;
        const bool inside = r >= 0 && c >= 0 && r < code->width && c < code->width;
        const bool isDark = inside && (code->data[r * code->width + c] & 1U) != 0;
        ASSERT_EQ(dark[static_cast<std::size_t>(row * modules + col)], isDark) << row << "," << col;
      }
    }
  }
}

TEST(QrCodeView, Is_dark_on_white_with_a_white_quiet_zone_on_a_dark_desktop_too) {
  QrCodeView onLight;
  onLight.SetText(kUrl);
  onLight.resize(onLight.minimumSize());
  const int modules = onLight.minimumWidth() / QrCodeView::kMinModule;
  const std::vector<bool> dark = ModulesOf(onLight, modules);
  SetColors(*qApp, test::DesktopPalette(true));
  QGroupBox panel;
  auto* const onDark = new QrCodeView(&panel);  // NOLINT(cppcoreguidelines-owning-memory)
  onDark->SetText(kUrl);
  onDark->resize(onDark->minimumSize());
  panel.resize(400, 400);
  panel.grab();
  EXPECT_LT(panel.palette().color(QPalette::Window).lightness(), 128);
  EXPECT_EQ(ModulesOf(*onDark, modules), dark);
  SetColors(*qApp, test::DesktopPalette(false));
}

TEST(QrCodeView, Of_no_text_and_of_a_text_that_is_too_long_there_is_no_code) {
  EXPECT_EQ(EncodeQr({}).size, 0);
  EXPECT_EQ(EncodeQr(QString(4000, u'a')).size, 0);
  EXPECT_EQ(EncodeQr(kUrl).size, 33);
}

}  // namespace
}  // namespace koru
