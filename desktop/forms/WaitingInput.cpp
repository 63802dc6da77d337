#include "desktop/forms/WaitingInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <utility>

namespace koru {
namespace {

bool IsEscape(const QEvent& event) { return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape; }

}  // namespace

WaitingInput::WaitingInput(QAbstractButton& cancel) : cancel_(cancel) {
  connect(&cancel_, &QAbstractButton::clicked, this, [this] { cancelled_ = true; });
}

void WaitingInput::Process() {
  QCoreApplication::instance()->installEventFilter(this);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(this);
}

bool WaitingInput::eventFilter(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!IsEscape(*event)) return false;
      event->accept();  // Escape arrives as a key, not as a shortcut
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      if (!IsEscape(*event)) break;
      if (event->type() == QEvent::KeyPress && !cancelled_) cancel_.click();
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      if (IsForCancel(receiver, *event)) return false;
      break;
    case QEvent::MouseMove:
      return !IsForCancel(receiver, *event);
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::TabletMove:
      event->ignore();  // the toolkit makes it an event of the mouse
      return true;
    case QEvent::Close:
      if (!receiver->isWindowType()) return false;
      break;
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
      break;
    default:
      return false;
  }
  waiting_.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
  return true;
}

bool WaitingInput::IsForCancel(const QObject* receiver, const QEvent& event) const {
  if (receiver == &cancel_ || cancel_.isDown()) return true;
  const QPoint place = static_cast<const QMouseEvent&>(event).globalPosition().toPoint();
  return QApplication::widgetAt(place) == &cancel_;
}

void WaitingInput::End() {
  QTimer::singleShot(0, this, [this] { Deliver(); });
}

void WaitingInput::Deliver() {
  const QWidget* const dialog = QApplication::activeModalWidget();
  const bool isDropped =
      std::exchange(cancelled_, false) || (dialog != nullptr && dialog != cancel_.window());
  for (const Waiting& input : std::exchange(waiting_, {})) {
    if (!isDropped && input.receiver) QCoreApplication::sendEvent(input.receiver, input.event.get());
  }
}

}  // namespace koru
