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

/// Normalizes a typed or pasted number (TypedNumberText). Of several lines or columns the first is taken.
[[nodiscard]] QString NumberTyped(const QString& text);

/// Whether the key types a character that can be part of a number.
[[nodiscard]] bool IsNumberKey(const QKeyEvent& key);

/// Lets only characters of numbers into `edit`, by the keyboard, pasted or dropped, and converts digits to
/// 0-9. A text with any other character is refused as a whole (QLineEdit::inputRejected).
void AcceptOnlyNumbers(QLineEdit& edit);

/// Converts digits that are typed or pasted into `edit` to 0-9, and keeps the first of several lines.
void KeepDigitsLatin(QLineEdit& edit);

}  // namespace koru
