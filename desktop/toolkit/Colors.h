#pragma once

#include <QColor>

class QApplication;
class QPalette;

namespace koru {

/// Sets the colours of all windows: light ones, or dark ones where the palette of the desktop is dark. Every
/// colour is written as it is on a light desktop; on a dark one it keeps its hue, and its lightness is
/// inverted.
void SetColors(QApplication& application, const QPalette& desktop);

/// A colour that no style sheet sets, such as that of a grid's row: `light` on a light desktop.
[[nodiscard]] QColor OnDesktop(const QColor& light);

}  // namespace koru
