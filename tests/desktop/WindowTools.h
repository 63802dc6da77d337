#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <functional>

#include "desktop/forms/FormBinding.h"
#include "platform/ports/Screen.h"

namespace koru::test {

/// A screen for forms whose window the test makes itself.
class NoScreen : public Screen {
 public:
  void SetCursor(Cursor cursor) override { cursor_ = cursor; }
  [[nodiscard]] Cursor CurrentCursor() const override { return cursor_; }
  void Show(Form& /*form*/, bool /*modal*/) override {}

 private:
  Cursor cursor_ = Cursor::Normal;
};

/// Shows a window and gives it the keyboard.
inline void Open(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

/// Types a text, of any alphabet, where the keyboard is.
inline void Type(const QString& text) {
  for (const QChar letter : text) {
    QWidget* const at = QApplication::activePopupWidget() != nullptr && QApplication::focusWidget() == nullptr
                            ? QApplication::activePopupWidget()
                            : QApplication::focusWidget();
    ASSERT_NE(at, nullptr) << "nothing has the keyboard";
    QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    QApplication::sendEvent(at, &press);
    QKeyEvent release(QEvent::KeyRelease, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    QApplication::sendEvent(at, &release);
  }
}

/// Presses a key where the keyboard is.
inline void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
  QWidget* const at = QApplication::focusWidget();
  ASSERT_NE(at, nullptr) << "nothing has the keyboard";
  QTest::keyClick(at, key, held);
}

/// Turns the mouse wheel over a widget by `eighths` of a degree; false when the widget leaves it to
/// its parent.
inline bool TurnWheel(QWidget& widget, int eighths) {
  const QPoint middle = widget.rect().center();
  QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
  return event.isAccepted();
}

/// Runs `answer` with the dialog that opens next.
inline void WhenDialogOpens(std::function<void(QWidget&)> answer) {
  QTimer::singleShot(0, qApp, [answer = std::move(answer)] {
    const QPointer<QWidget> dialog = QApplication::activeModalWidget();
    if (dialog.isNull()) return;
    answer(*dialog);
    if (dialog.isNull() || !dialog->isVisible()) return;
    ADD_FAILURE() << "the dialog is still open";
    dialog->close();
  });
}

/// How many pixels of a widget have exactly that colour.
inline int PixelsOf(QWidget& widget, const QColor& color) {
  const QImage image = widget.grab().toImage();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color ? 1 : 0;
  }
  return count;
}

/// The room in a window on a screen of 1366 x 768 pixels that is scaled by 150 per cent.
inline constexpr QSize kSmallWindow(894, 468);

/// The buttons that are not whole in a window of that size, by their object names.
inline QStringList ButtonsCutOff(QWidget& window, QSize size) {
  window.resize(size);
  QApplication::processEvents();
  QStringList cut;
  for (const auto* const button : window.findChildren<QAbstractButton*>()) {
    const QRect place(button->mapTo(&window, QPoint(0, 0)), button->size());
    const bool isWhole =
        QRect({}, size).contains(place) && button->width() >= button->minimumSizeHint().width();
    if (qobject_cast<const QLineEdit*>(button->parentWidget()) != nullptr) continue;  // its small cross
    if (button->isVisible() && !isWhole && button->window() == &window) cut += button->objectName();
  }
  return cut;
}

/// The inputs of a window that a screen reader has no name for, by their object names.
inline QStringList InputsWithoutName(QWidget& window) {
  QStringList nameless;
  for (QWidget* const widget : window.findChildren<QWidget*>()) {
    const bool isInput = widget->inherits("QLineEdit") || widget->inherits("QPlainTextEdit") ||
                         widget->inherits("QComboBox") || widget->inherits("QAbstractSpinBox") ||
                         widget->inherits("QAbstractButton") || widget->inherits("QTableView");
    const bool isReached = widget->isVisible() && widget->focusPolicy() != Qt::NoFocus;
    if (!isInput || !isReached || widget->objectName().startsWith("qt_")) continue;
    QAccessibleInterface* const read = QAccessible::queryAccessibleInterface(widget);
    if (read == nullptr || read->text(QAccessible::Name).trimmed().isEmpty()) {
      nameless += widget->objectName() + " in " + widget->parentWidget()->objectName();
    }
  }
  return nameless;
}

}  // namespace koru::test
