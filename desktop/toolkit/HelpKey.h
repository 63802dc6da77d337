#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace koru {

/// Presses F1 in a widget, for a menu entry that opens the manual.
inline void PressHelpKey(QWidget& widget) {
  QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &press);
}

}  // namespace koru
