#pragma once

#include <QGuiApplication>
#include <QPoint>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace koru {

/// Where a popup of that size stands: under `field` with their leading edges in line, above it where the
/// screen ends.
[[nodiscard]] inline QPoint PopupPlace(const QWidget& field, QSize size) {
  const QPoint below = field.mapToGlobal(QPoint(field.width() - size.width(), field.height() + 1));
  const QRect screen = field.screen()->availableGeometry();
  const int above = field.mapToGlobal(QPoint(0, 0)).y() - size.height() - 1;
  const int y = below.y() + size.height() > screen.bottom() && above >= screen.top() ? above : below.y();
  const int rightmost = std::max(screen.left(), screen.right() - size.width());
  return {std::clamp(below.x(), screen.left(), rightmost), y};
}

}  // namespace koru
