#pragma once

#include <QLabel>
#include <QString>

namespace koru {

/// A line of small print in a window, right to left, that says what a command did. A text that is too long is
/// cut at its end, and the tooltip has all of it: the line asks for the width of its text and gets along with
/// any.
class StatusLine : public QLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  void Say(const QString& sentence);
  /// The whole text, without marks of direction.
  [[nodiscard]] const QString& Sentence() const { return sentence_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowAsMuchAsFits();

  QString sentence_;
};

}  // namespace koru
