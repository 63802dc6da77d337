#pragma once

#include <QDialog>
#include <filesystem>

#include "host/Backups.h"

class QProgressBar;

namespace koru {

/// Takes a backup while it shows the progress; Escape or the button cancels it. Other windows wait.
class BackupProgressDialog : public QDialog {
  Q_OBJECT

 public:
  explicit BackupProgressDialog(QWidget* parent);

  /// Throws what TakeBackup throws.
  BackupOutcome Run(const std::filesystem::path& database, const std::filesystem::path& to);

  /// The time of the machine.
  [[nodiscard]] static BackupTime Now();

 private:
  QProgressBar* bar_;
  bool cancelled_ = false;
};

}  // namespace koru
