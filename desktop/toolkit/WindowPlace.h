#pragma once

#include <QSize>

class QWidget;

namespace koru {

/// The size in which a window first opens: `usual`, or what the screen leaves inside of the window's frame.
[[nodiscard]] QSize FirstSize(QSize usual);

/// Puts a dialog that is about to be shown over the middle of the window below it, all of it on that screen.
void PutOver(QWidget& dialog, const QWidget& below);

}  // namespace koru
