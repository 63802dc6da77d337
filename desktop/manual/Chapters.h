#pragma once

#include <QString>
#include <span>

class QWidget;

namespace koru {

/// The chapter of the manual (`page.html` or `page.html#anchor`) about the widget of that object name.
struct Chapter {
  const char* widget;
  const char* page;
};

/// All chapters that F1 opens.
[[nodiscard]] std::span<const Chapter> Chapters();

/// The chapter about a widget or about the closest of its parents that has one, for a dialog or a popup also
/// the window that opened it; empty if none has one.
[[nodiscard]] QString ChapterOf(const QWidget& widget);

}  // namespace koru
