#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "database/sqlserver/CheckDatabase.h"
#include "host/HostSession.h"
#include "host/ServerConnection.h"

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace koru {

/// The form that connects to a server. Its test makes the checks of `koru-counting check`; test and
/// connection run in the background, and the form can be cancelled meanwhile.
class ServerDialog : public QDialog {
  Q_OBJECT

 public:
  /// `connection` fills the form; empty: a new one. `session` must outlive the dialog.
  ServerDialog(HostSession& session, const std::string& connection, QWidget* parent);

  /// The connection text, with its password, of a server that was reached; empty if the user cancels.
  [[nodiscard]] std::string Ask();

 private:
  void AddFields(QFormLayout& form);
  void AddButtons(QVBoxLayout& window);
  QLineEdit* NewField(const char* name, const std::string& text);
  [[nodiscard]] ServerConnection Entered() const;
  void Test();
  void Connect();
  /// Runs the checks, or the connection alone, in the background.
  void Run(bool all, const std::function<void(const std::vector<CheckedThing>&)>& done);
  void ShowResults(const std::vector<CheckedThing>& things);
  void SetRunning(bool running);

  HostSession& session_;
  ServerConnection connection_;
  std::string reached_;
  QLineEdit* server_ = nullptr;
  QLineEdit* database_ = nullptr;
  QLineEdit* login_ = nullptr;
  QLineEdit* password_ = nullptr;
  QCheckBox* integrated_ = nullptr;
  QPushButton* test_ = nullptr;
  QPushButton* connect_ = nullptr;
  QLabel* outcome_ = nullptr;
  QListWidget* results_ = nullptr;
  QProgressBar* busy_ = nullptr;
};

}  // namespace koru
