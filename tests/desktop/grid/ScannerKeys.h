#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QString>
#include <QWidget>

namespace koru::test {

/// A keyboard and a scanner whose key events have timestamps: no time passes in the test.
class TimedKeys {
 public:
  static constexpr int kScannerMs = 2;
  static constexpr int kHandMs = 120;

  /// A scanner sends the text and the key that ends it.
  void Scan(const QString& text, int end = Qt::Key_Return) {
    Pause();
    SendAll(text, kScannerMs);
    Send(end, {}, kScannerMs);
  }
  /// A scanner that is not set up to send a key at the end.
  void ScanWithoutEnd(const QString& text) {
    Pause();
    SendAll(text, kScannerMs);
  }
  /// A hand types the text.
  void Type(const QString& text) { SendAll(text, kHandMs); }
  void Press(int key) { Send(key, {}, kHandMs); }
  /// Types the text and presses Enter.
  void Enter(const QString& text) {
    Type(text);
    Press(Qt::Key_Return);
  }
  void Pause() { nowMs_ += 400; }
  /// A key that is held down: the keyboard repeats it.
  void Hold(const QString& text, int times) {
    for (int i = 0; i < times; ++i) Send(text.front().unicode(), text, kRepeatMs, i > 0);
  }
  void Send(int key, const QString& text, int ms, bool repeated = false) {
    nowMs_ += static_cast<quint64>(ms);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QWidget* const at = QApplication::focusWidget();
      if (at == nullptr) return;
      QKeyEvent event(type, key, Qt::NoModifier, text, repeated);
      event.setTimestamp(nowMs_);
      QApplication::sendEvent(at, &event);
    }
  }

 private:
  static constexpr int kRepeatMs = 30;

  void SendAll(const QString& text, int ms) {
    for (const QChar character : text) Send(character.toUpper().unicode(), QString(character), ms);
  }

  quint64 nowMs_ = 1000;
};

}  // namespace koru::test
