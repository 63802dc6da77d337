#pragma once

#include <QString>
#include <Qt>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace koru {

/// The right edge in windows of both directions: digits alone would begin at the left one.
inline constexpr Qt::Alignment kTrueRight = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;

/// A field for numbers, codes and barcodes: digits begin at the right edge, where the names stand.
[[nodiscard]] QLineEdit* NewCodeField(QWidget* parent, int leastWidth = 70);

/// Tells which keys do what, in small print. The keys' Latin names do not turn its direction round.
[[nodiscard]] QLabel* NewHint(const QString& text, QWidget* parent);

/// What a tooltip says of a command: what it does, and the keys that do it.
[[nodiscard]] QString WithKeys(const QString& text, const QString& keys);

/// `text` as right to left even where it begins with a Latin letter.
[[nodiscard]] QString RightToLeft(const QString& text);

/// A text never gets longer than that many UTF-16 units: the end of what was typed or pasted last is taken
/// off again.
void LimitLength(QPlainTextEdit& field, int units);

/// Who turns the wheel over a list means to scroll past it: only a list that is open follows the wheel.
void KeepFromWheel(QComboBox& list);

}  // namespace koru
