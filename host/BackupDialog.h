#pragma once

#include <QDialog>
#include <filesystem>
#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace koru {

class HostSession;

/// Takes a backup of an embedded database where the user wants it, and keeps whether one precedes each final
/// registration.
class BackupDialog : public QDialog {
  Q_OBJECT

 public:
  /// Without a `database` file the dialog says who backs a server up. `session` must outlive the dialog.
  BackupDialog(HostSession& session, std::optional<std::filesystem::path> database, QWidget* parent);

  /// Takes a backup; its outcome is shown in the dialog.
  void BackUpTo(const std::filesystem::path& file);

 private:
  void AddChoices(QVBoxLayout& window);
  void AddButtons(QVBoxLayout& window);
  void AskAndBackUp();
  void KeepAutomatic(bool does);

  HostSession& session_;
  std::optional<std::filesystem::path> database_;
  QLabel* outcome_ = nullptr;
  QCheckBox* automatic_ = nullptr;
  QPushButton* take_ = nullptr;
};

}  // namespace koru
