#pragma once

#include <QWidget>
#include <functional>

#include "desktop/forms/comInvCountingWidget.h"
#include "host/HostSession.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace koru {

/// A host screen of the suite: the signed-in user, the database, the embedded control, and the commands that
/// open a new or a stored counting.
class HostWindow : public QWidget {
  Q_OBJECT

 public:
  /// `session` must outlive the window. Throws InputError when the settings hold a property that cannot be
  /// read.
  explicit HostWindow(HostSession& session);

  [[nodiscard]] comInvCountingWidget& Control() { return *control_; }
  /// Shows the users and countings of the connected database. Reports a failure to the user.
  void ReadDatabase();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddSignIn(QVBoxLayout& window);
  void AddDoors(QVBoxLayout& window);
  void ShowUsers();
  void ChooseDatabase();
  void OpenByNumber();
  void KeepProperties();
  /// Runs an action of the user and shows what it throws.
  void Try(const std::function<void()>& action) const;

  HostSession& session_;
  comInvCountingWidget* control_;
  QComboBox* users_;
  QLabel* database_;
  QLineEdit* number_;
};

}  // namespace koru
