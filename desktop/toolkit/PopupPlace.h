#pragma once

#include <QGuiApplication>
#include <QPoint>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace koru {

/// The position of a popup of that size: under `field`, aligned with its leading edge, or above it if the
/// screen ends below.
[[nodiscard]] inline QPoint PopupPlace(const QWidget& field, QSize size) {
  const QPoint below = field.mapToGlobal(QPoint(field.width() - size.width(), field.height() + 1));
  const QRect screen = field.screen()->availableGeometry();
  const int above = field.mapToGlobal(QPoint(0, 0)).y() - size.height() - 1;
  const int y = below.y() + size.height() > screen.bottom() && above >= screen.top() ? above : below.y();
  const int rightmost = std::max(screen.left(), screen.right() - size.width());
  return {std::clamp(below.x(), screen.left(), rightmost), y};
}

}  // namespace koru
