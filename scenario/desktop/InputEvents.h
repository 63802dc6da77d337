#pragma once

#include <QPoint>
#include <QString>
#include <Qt>
#include <functional>

#include "platform/controls/Control.h"

class QWidget;

namespace koru {

// What a person's hands do, as events to widgets. A widget may go while it is clicked.

/// Lets events run until `there` says so; false when it did not within five seconds.
bool WaitUntil(const std::function<bool()>& there);

/// Presses and releases the left button at `at` (the middle of the widget where none is given), in its
/// coordinates.
void ClickOn(QWidget& widget, QPoint at);
void ClickOn(QWidget& widget);
void DoubleClickOn(QWidget& widget, QPoint at);
/// Asks for the context menu in the middle of the widget, as the right button does.
void RightClickOn(QWidget& widget);

/// Presses a key where the keyboard is.
void PressKey(int key, Qt::KeyboardModifiers held = Qt::NoModifier, const QString& text = {});
void PressKey(KeyPress press);
/// Types a text, character by character, where the keyboard is; a line break is Enter.
void TypeText(const QString& text);

}  // namespace koru
