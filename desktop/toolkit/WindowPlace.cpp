#include "desktop/toolkit/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace koru {
namespace {

/// The frame that window managers add; its size is unknown until the window has been on the screen.
constexpr QSize kFrame(16, 44);

}  // namespace

QSize FirstSize(QSize usual) {
  return usual.boundedTo(QGuiApplication::primaryScreen()->availableSize() - kFrame);
}

void PutOver(QWidget& dialog, const QWidget& below) {
  if (!dialog.testAttribute(Qt::WA_Resized)) {
    dialog.adjustSize();
    dialog.setAttribute(Qt::WA_Resized, false);  // its contents still determine the size
  }
  const QRect screen = below.screen()->availableGeometry();
  QRect place(QPoint(), dialog.size() + kFrame);
  place.moveCenter(below.frameGeometry().center());
  place.moveRight(std::min(place.right(), screen.right()));
  place.moveBottom(std::min(place.bottom(), screen.bottom()));
  dialog.move(std::max(place.left(), screen.left()), std::max(place.top(), screen.top()));
}

}  // namespace koru
