#pragma once

#include "platform/Control.h"

class QKeyEvent;
class QLineEdit;

namespace koru {

/// The key that a person pressed, as forms know keys. A letter key of the Persian keyboard is the Latin key
/// in the same place, so that Ctrl+S is Ctrl+S whatever the keyboard is switched to. Keys that forms do not
/// know have the number 0.
[[nodiscard]] KeyPress PressOf(const QKeyEvent& event);

/// Makes every digit that is typed or pasted into `edit` arrive as 0-9.
void KeepDigitsLatin(QLineEdit& edit);

}  // namespace koru
