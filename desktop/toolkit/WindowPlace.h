#pragma once

#include <QSize>

class QWidget;

namespace koru {

/// The initial size of a window: `usual`, or what the screen leaves inside of the window's frame.
[[nodiscard]] QSize FirstSize(QSize usual);

/// Centres a dialog that is about to be shown over the window `below`, completely on its screen.
void PutOver(QWidget& dialog, const QWidget& below);

}  // namespace koru
