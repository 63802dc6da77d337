#pragma once

#include <QString>

#include "platform/Control.h"

class QKeyEvent;
class QLineEdit;

namespace koru {

/// The key that a person pressed, as forms know keys. A letter key of the Persian keyboard is the Latin key
/// in the same place, so that Ctrl+S is Ctrl+S whatever the keyboard is switched to. Keys that forms do not
/// know have the number 0.
[[nodiscard]] KeyPress PressOf(const QKeyEvent& event);

/// What a person types or pastes as a number, as forms know numbers: digits are 0-9, and the separators that
/// group them, also the comma that amounts are shown with, are gone. Of several lines or columns the first.
[[nodiscard]] QString NumberTyped(const QString& text);

/// Makes whatever is typed or pasted into `edit` arrive as a number.
void KeepDigitsLatin(QLineEdit& edit);

}  // namespace koru
