#pragma once

#include <QDialog>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace koru {

class CountPanel;
class FloorDesk;
class FloorTable;
class LogView;

/// The dialog of the open floor: a page for the codes of the three counts, one for the devices, one for
/// barcodes that no line has, and one for the log. It does not block the counting window, and closing it
/// leaves the floor open.
class FloorDialog : public QDialog {
  Q_OBJECT

 public:
  /// `desk` must outlive the dialog and have an open floor while the dialog is shown.
  FloorDialog(FloorDesk& desk, QWidget* parent);

  /// Shows the dialog in front, with what is true now.
  void Appear();
  /// The floor is closed: hides the dialog for good.
  void Leave();

 private:
  [[nodiscard]] QWidget* NewCodesPage();
  [[nodiscard]] QWidget* NewDevicesPage();
  [[nodiscard]] QWidget* NewUnknownPage();
  [[nodiscard]] QWidget* NewLogPage();
  void AddCommands(QBoxLayout& layout);
  void Show();
  void ShowAddresses();
  void ShowCodes();
  void ShowDevices();
  void ShowUnknown();
  void SwitchToSecure(bool secure);
  /// The selected barcode that no line has; empty when none is.
  [[nodiscard]] QString ChosenUnknown() const;
  void AddChosenUnknown();
  void SaveLog();
  void Run(void (FloorDialog::*command)());

  FloorDesk& desk_;
  QLabel* summary_;
  QTabWidget* pages_;
  QComboBox* addresses_ = nullptr;
  QCheckBox* secure_ = nullptr;
  QLabel* advice_ = nullptr;
  std::vector<CountPanel*> counts_;
  FloorTable* devices_ = nullptr;
  FloorTable* unknown_ = nullptr;
  QPushButton* addUnknown_ = nullptr;
  LogView* log_ = nullptr;
  QLabel* said_ = nullptr;
  bool isOver_ = false;
};

}  // namespace koru
