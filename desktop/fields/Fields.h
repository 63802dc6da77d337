#pragma once

#include <QString>
#include <Qt>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace koru {

/// The right edge in windows of both directions; without it, digits alone are aligned left.
inline constexpr Qt::Alignment kTrueRight = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;

/// A field for numbers, codes and barcodes, aligned right as the field names are.
[[nodiscard]] QLineEdit* NewCodeField(QWidget* parent, int leastWidth = 70);

/// A label in small print that lists shortcuts; right to left in spite of the keys' Latin names.
[[nodiscard]] QLabel* NewHint(const QString& text, QWidget* parent);

/// A sentence that must not be overlooked, on a coloured ground.
[[nodiscard]] QLabel* NewNotice(const QString& text, QWidget* parent);

/// The tool tip of a command: its text and its shortcut.
[[nodiscard]] QString WithKeys(const QString& text, const QString& keys);

/// Makes `text` right to left even if it begins with a Latin letter.
[[nodiscard]] QString RightToLeft(const QString& text);

/// Makes the style evaluate the properties of a widget again.
void StyleAgain(QWidget& widget);

/// Limits the length of the text in UTF-16 units: the end of a longer insertion is removed.
void LimitLength(QPlainTextEdit& field, int units);

/// Ignores the mouse wheel over a closed list, where the user means to scroll the window.
void KeepFromWheel(QComboBox& list);

}  // namespace koru
