#pragma once

#include <QPoint>
#include <QString>
#include <Qt>
#include <functional>

#include "platform/controls/Control.h"

class QWidget;

namespace koru {

// Mouse and key input as events to widgets. A widget may be destroyed by its own click.

/// Processes events until `there` returns true; false after five seconds.
bool WaitUntil(const std::function<bool()>& there);

/// Presses and releases the left button at `at` (the middle of the widget where none is given), in its
/// coordinates.
void ClickOn(QWidget& widget, QPoint at);
void ClickOn(QWidget& widget);
void DoubleClickOn(QWidget& widget, QPoint at);
/// Requests the context menu in the middle of the widget, as the right button does.
void RightClickOn(QWidget& widget);

/// The widget that receives keys: in the popup that is open, otherwise the one with the focus; nullptr when
/// there is none.
[[nodiscard]] QWidget* WidgetWithKeyboard();

/// Presses a key in the widget with the keyboard.
void PressKey(int key, Qt::KeyboardModifiers held = Qt::NoModifier, const QString& text = {});
void PressKey(KeyPress press);
/// Types a text, character by character, into the widget with the keyboard; a line break is Enter.
void TypeText(const QString& text);

}  // namespace koru
