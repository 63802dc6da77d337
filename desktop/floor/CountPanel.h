#pragma once

#include <QGroupBox>

class QLabel;
class QPushButton;

namespace koru {

class FloorDesk;
class QrCodeView;

/// What the counter of one count needs to take part: the QR code of the address, the whole address to type
/// and to copy, and the commands for a new code. It also has the name of the counter and the number of
/// devices.
class CountPanel : public QGroupBox {
  Q_OBJECT

 public:
  /// `desk` must outlive the panel.
  CountPanel(FloorDesk& desk, int count, QWidget* parent);

  /// Shows the address of that machine's name.
  void ShowAddress(const QString& address, bool secure);
  /// Shows who counts, and how many devices take part.
  void ShowCounter();

 private:
  FloorDesk& desk_;
  int count_;
  QLabel* counter_;
  QrCodeView* code_;
  QLabel* url_;
  QPushButton* copy_;
  QPushButton* renew_;
};

}  // namespace koru
