#include "desktop/floor/QrCodeView.h"

#include <qrencode.h>

#include <QPainter>
#include <algorithm>
#include <memory>

namespace koru {

QrCode EncodeQr(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  if (bytes.isEmpty()) return {};
  const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
      QRcode_encodeString8bit(bytes.constData(), 0, QR_ECLEVEL_M), &QRcode_free);
  if (code == nullptr) return {};
  QrCode result{code->width, {}};
  const auto modules = static_cast<std::size_t>(code->width) * static_cast<std::size_t>(code->width);
  result.dark.reserve(modules);
  for (std::size_t i = 0; i < modules; ++i) result.dark.push_back((code->data[i] & 1U) != 0);
  return result;
}

QrCodeView::QrCodeView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
}

void QrCodeView::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  code_ = EncodeQr(text);
  setMinimumSize(sizeHint());
  update();
}

QSize QrCodeView::sizeHint() const {
  const int side = (code_.size + 2 * kQuietZone) * kMinModule;
  return {side, side};
}

void QrCodeView::paintEvent(QPaintEvent* /*event*/) {
  if (code_.size == 0) return;
  const int modules = code_.size + 2 * kQuietZone;
  const int module = std::min(width(), height()) / modules;
  const QPoint corner((width() - module * modules) / 2, (height() - module * modules) / 2);
  QPainter painter(this);
  painter.fillRect(QRect(corner, QSize(module * modules, module * modules)), Qt::white);
  for (int row = 0; row < code_.size; ++row) {
    for (int col = 0; col < code_.size; ++col) {
      if (!code_.IsDark(row, col)) continue;
      const QPoint at = corner + QPoint(col + kQuietZone, row + kQuietZone) * module;
      painter.fillRect(QRect(at, QSize(module, module)), Qt::black);
    }
  }
}

}  // namespace koru
