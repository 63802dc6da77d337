#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace koru {

/// A bar that offers what a user was entering when the program ended: restore it, discard it, or decide
/// later. Enter presses the focused button, at first Restore; Escape is Later.
class DraftOffer : public QFrame {
  Q_OBJECT

 public:
  explicit DraftOffer(QWidget* parent);

  /// Shows the bar with that sentence and moves the focus to it.
  void Offer(const QString& sentence);

 signals:
  void restoreWanted();
  void discardWanted();
  /// The bar is hidden already.
  void leftForLater();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Leave();

  QLabel* sentence_;
  QPushButton* restore_;
};

}  // namespace koru
