#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QWidget>
#include <string>
#include <vector>

namespace koru::test {

/// A user who opens everything and stores nothing: in every window that appears each button is pressed that
/// does not write, lists are opened, and what was opened is closed again. Messages are read and answered with
/// No.
class Walk : public QObject {
 public:
  Walk();

  /// Presses all buttons of a window, and of the windows that this opens. A window of a kind is walked
  /// through once.
  void Through(QWidget& window);
  /// Presses the button of that name where it can be pressed.
  void Press(QWidget& window, const char* button);

  /// The messages, each with its detail.
  [[nodiscard]] const std::vector<std::string>& Messages() const { return messages_; }
  /// The kinds of windows that were seen.
  [[nodiscard]] const QSet<QString>& Seen() const { return seen_; }

 private:
  /// Looks after the modal windows, from inside their event loops; continues until the walk is destroyed.
  void Attend();
  void Answer(QWidget& message);
  void Leave(QWidget& window);
  void Fields(QWidget& window);

  std::vector<std::string> messages_;
  QSet<QString> seen_;
};

}  // namespace koru::test
