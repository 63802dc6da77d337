#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace koru {

class FloorDesk;

/// The line in the counting window that says that the floor is open: devices, figures, a pause; or that left
/// figures wait for a decision. Hidden otherwise.
class FloorBar : public QWidget {
  Q_OBJECT

 public:
  /// `desk` must outlive the bar.
  FloorBar(FloorDesk& desk, QWidget* parent);

 private:
  void Show();

  FloorDesk& desk_;
  QLabel* sentence_;
  QPushButton* left_;
  QPushButton* show_;
  QPushButton* stop_;
};

}  // namespace koru
