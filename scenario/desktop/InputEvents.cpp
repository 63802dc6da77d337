#include "scenario/desktop/InputEvents.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <utility>

namespace koru {
namespace {

constexpr int kFirstFunctionKey = 112;
constexpr int kLastFunctionKey = 135;

constexpr std::array<std::pair<int, Qt::Key>, 16> kNamedKeys{{{8, Qt::Key_Backspace},
                                                              {9, Qt::Key_Tab},
                                                              {13, Qt::Key_Return},
                                                              {27, Qt::Key_Escape},
                                                              {33, Qt::Key_PageUp},
                                                              {34, Qt::Key_PageDown},
                                                              {35, Qt::Key_End},
                                                              {36, Qt::Key_Home},
                                                              {37, Qt::Key_Left},
                                                              {38, Qt::Key_Up},
                                                              {39, Qt::Key_Right},
                                                              {40, Qt::Key_Down},
                                                              {45, Qt::Key_Insert},
                                                              {46, Qt::Key_Delete},
                                                              {107, Qt::Key_Plus},
                                                              {109, Qt::Key_Minus}}};

/// Sends the event to the window, as the window system does: the widget at that place receives it, and the
/// focus.
void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButtons held) {
  QWidget& window = *widget.window();
  if (window.windowHandle() == nullptr) return;
  QMouseEvent event(type, widget.mapTo(&window, at), widget.mapToGlobal(at), Qt::LeftButton, held,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(window.windowHandle(), &event);
}

void PressAndRelease(QWidget& widget, QEvent::Type press, QPoint at) {
  const QPointer<QWidget> alive(&widget);
  SendMouse(widget, press, at, Qt::LeftButton);
  if (!alive.isNull()) SendMouse(widget, QEvent::MouseButtonRelease, at, Qt::NoButton);
}

}  // namespace

bool WaitUntil(const std::function<bool()>& there) {
  constexpr int kPatienceMs = 5000;
  const QDeadlineTimer patience(kPatienceMs);
  while (!there()) {
    if (patience.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
  return true;
}

void ClickOn(QWidget& widget, QPoint at) { PressAndRelease(widget, QEvent::MouseButtonPress, at); }

void ClickOn(QWidget& widget) { ClickOn(widget, widget.rect().center()); }

void DoubleClickOn(QWidget& widget, QPoint at) {
  const QPointer<QWidget> alive(&widget);
  ClickOn(widget, at);
  if (!alive.isNull()) PressAndRelease(widget, QEvent::MouseButtonDblClick, at);
}

void RightClickOn(QWidget& widget) {
  const QPoint at = widget.rect().center();
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
  QCoreApplication::sendEvent(&widget, &event);
}

QWidget* WidgetWithKeyboard() {
  QWidget* const popup = QApplication::activePopupWidget();
  if (popup == nullptr) return QApplication::focusWidget();
  return popup->focusWidget() == nullptr ? popup : popup->focusWidget();
}

void PressKey(int key, Qt::KeyboardModifiers held, const QString& text) {
  const QPointer<QWidget> target(WidgetWithKeyboard());
  if (target.isNull()) return;
  QKeyEvent override(QEvent::ShortcutOverride, key, held, text);
  QCoreApplication::sendEvent(target, &override);
  if (!target.isNull()) {
    QKeyEvent press(QEvent::KeyPress, key, held, text);
    QCoreApplication::sendEvent(target, &press);
  }
  if (!target.isNull()) {
    QKeyEvent release(QEvent::KeyRelease, key, held, text);
    QCoreApplication::sendEvent(target, &release);
  }
}

void PressKey(KeyPress press) {
  const auto* const named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                         [&](const auto& pair) { return pair.first == press.key; });
  int key = named == kNamedKeys.end() ? press.key : static_cast<int>(named->second);
  if (press.key >= kFirstFunctionKey && press.key <= kLastFunctionKey) {
    key = Qt::Key_F1 + press.key - kFirstFunctionKey;
  }
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, (press.shift & 1) != 0);
  held.setFlag(Qt::ControlModifier, (press.shift & 2) != 0);
  held.setFlag(Qt::AltModifier, (press.shift & 4) != 0);
  PressKey(key, held);
}

void TypeText(const QString& text) {
  for (const char32_t character : text.toStdU32String()) {
    if (character == U'\n') {
      PressKey(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    } else {
      PressKey(static_cast<int>(QChar::toUpper(character)), Qt::NoModifier, QString::fromUcs4(&character, 1));
    }
  }
}

}  // namespace koru
