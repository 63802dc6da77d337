#pragma once

#include <QString>

namespace koru::test {

/// The bars of a barcode as one letter for each module, '1' for dark; without quiet zones.
/// EAN-13 of 12 digits, to which the check digit is added.
QString Ean13Bars(const QString& digits);
/// The 13 digits that a reader gives for these 12.
QString Ean13Text(const QString& digits);
/// Code 128, code set B: printable ASCII.
QString Code128Bars(const QString& text);

}  // namespace koru::test
