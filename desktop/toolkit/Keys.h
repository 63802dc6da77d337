#pragma once

#include <QString>

#include "platform/controls/Control.h"

class QKeyEvent;
class QLineEdit;

namespace koru {

/// Converts a key press to the virtual key codes of forms. A letter of the Persian keyboard becomes the Latin
/// letter on the same key, so that Ctrl+S does not depend on the keyboard layout. Keys without a code become
/// 0.
[[nodiscard]] KeyPress PressOf(const QKeyEvent& event);

/// Normalizes a typed or pasted number: digits become 0-9, and separators between groups of three digits, as
/// shown in amounts, are removed (12,5 keeps its comma). Of several lines or columns the first is taken.
[[nodiscard]] QString NumberTyped(const QString& text);

/// Converts digits that are typed or pasted into `edit` to 0-9, and keeps the first of several lines.
void KeepDigitsLatin(QLineEdit& edit);

}  // namespace koru
