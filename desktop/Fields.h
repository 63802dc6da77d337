#pragma once

#include <QString>
#include <Qt>

class QComboBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace koru {

/// The right edge in windows of both directions: digits alone would begin at the left one.
inline constexpr Qt::Alignment kTrueRight = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;

/// A field for numbers, codes and barcodes: digits begin at the right edge, where the names stand.
[[nodiscard]] QLineEdit* NewCodeField(QWidget* parent, int leastWidth = 70);

/// Tells which keys do what, in small print. The keys' Latin names do not turn its direction round.
[[nodiscard]] QLabel* NewHint(const QString& text, QWidget* parent);

/// `text` as right to left even where it begins with a Latin letter.
[[nodiscard]] QString RightToLeft(const QString& text);

/// Who turns the wheel over a list means to scroll past it: only a list that is open follows the wheel.
void KeepFromWheel(QComboBox& list);

}  // namespace koru
