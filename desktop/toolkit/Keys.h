#pragma once

#include <QString>

#include "platform/controls/Control.h"

class QKeyEvent;
class QLineEdit;

namespace koru {

/// The key that a person pressed, as forms know keys. A letter key of the Persian keyboard is the Latin key
/// in the same place, so that Ctrl+S is Ctrl+S whatever the keyboard is switched to. Keys that forms do not
/// know have the number 0.
[[nodiscard]] KeyPress PressOf(const QKeyEvent& event);

/// What a person has typed or pasted as a number, as forms know numbers: digits are 0-9, and separators that
/// part groups of three digits, as amounts are shown with, are gone (12,5 keeps its comma). Of several lines
/// or columns the first.
[[nodiscard]] QString NumberTyped(const QString& text);

/// Makes the digits that are typed or pasted into `edit` arrive as 0-9, and of several lines the first.
void KeepDigitsLatin(QLineEdit& edit);

}  // namespace koru
