#include "host/WindowSizes.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <array>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr std::array kWindows = {"host", "frmInvCounting", "reportPreview", "manual"};

bool HasKeptSize(const QWidget& widget) {
  if (!widget.isWindow()) return false;
  return std::any_of(kWindows.begin(), kWindows.end(),
                     [&](const char* name) { return widget.objectName() == QLatin1String(name); });
}

}  // namespace

WindowSizes::WindowSizes(HostSettings& settings) : settings_(settings) { qApp->installEventFilter(this); }

bool WindowSizes::eventFilter(QObject* object, QEvent* event) {
  const bool shows = event->type() == QEvent::Show;
  const bool hides = event->type() == QEvent::Hide;
  if ((!shows && !hides) || event->spontaneous() || !object->isWidgetType()) return false;
  auto& widget = *static_cast<QWidget*>(object);
  if (!HasKeptSize(widget)) return false;
  if (shows) {
    Restore(widget);
  } else {
    Keep(widget);
  }
  return false;
}

void WindowSizes::Restore(QWidget& window) const {
  const auto kept = settings_.SizeOf(FromQt(window.objectName()));
  if (!kept) return;
  window.resize(FirstSize({kept->width, kept->height}).expandedTo(window.minimumSizeHint()));
  if (kept->maximized) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void WindowSizes::Keep(const QWidget& window) {
  const QSize normal = window.isMaximized() ? window.normalGeometry().size() : window.size();
  const WindowSize size{normal.width(), normal.height(), window.isMaximized()};
  const std::string name = FromQt(window.objectName());
  if (normal.isEmpty() || settings_.SizeOf(name) == size) return;
  settings_.KeepSize(name, size);
  try {
    settings_.Write();
  } catch (const InputError&) {  // no message in the midst of closing; the next change of user or database
                                 // reports it
  }
}

}  // namespace koru
