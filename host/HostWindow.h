#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <string>

#include "desktop/forms/comInvCountingWidget.h"
#include "host/HostSession.h"
#include "host/WindowSizes.h"

class QBoxLayout;
class QComboBox;
class QKeySequence;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace koru {

class CountingList;
class StartPage;

/// A host screen of the suite: the choice of a database, then the signed-in user, all countings of the
/// database, and the commands that open a new or a stored one.
class HostWindow : public QWidget {
  Q_OBJECT

 public:
  /// `session` must outlive the window. `sampleFile` is where the sample of the first start is made. Throws
  /// InputError when the settings hold a property that cannot be read.
  HostWindow(HostSession& session, std::filesystem::path sampleFile);

  [[nodiscard]] comInvCountingWidget& Control() { return *control_; }
  /// Shows the database used last. Without one, and when it cannot be read, the window shows the choice of a
  /// database; a server whose password is missing also opens the form that asks for it.
  void Start();
  /// Shows the users and countings of the connected database; on failure the choice of another one, with a
  /// sentence.
  void ReadDatabase();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddStartPage();
  void AddWorkPage();
  void AddSignIn(QBoxLayout& page);
  void AddCommands(QBoxLayout& page);
  QPushButton* AddCommand(QBoxLayout& bar, const char* name, const QString& caption, const QKeySequence& key);
  void ShowUsers();
  void ReadCountings();
  void ShowStart(const std::string& sentence);
  [[nodiscard]] std::string Connection() const;
  [[nodiscard]] std::string FolderOfDatabase() const;

  void UseSample();
  void UseFile();
  void UseNewFile();
  void UseServer(const std::string& connection);
  void UseRecent(const std::string& connection);
  /// Changes to another database, unless it cannot be used or the user keeps what is being entered.
  void Use(const std::string& connection);

  void OpenByNumber();
  void ShowAbout();
  void ShowBackup();
  [[nodiscard]] HostServices ServicesOfControl();
  void KeepProperties();
  /// Runs an action of the user and shows what it throws.
  void Try(const std::function<void()>& action) const;

  HostSession& session_;
  std::filesystem::path sampleFile_;
  WindowSizes sizes_;
  QStackedWidget* pages_;
  StartPage* start_ = nullptr;
  comInvCountingWidget* control_;
  CountingList* countings_ = nullptr;
  QComboBox* users_ = nullptr;
  QLabel* database_ = nullptr;
  QLineEdit* number_ = nullptr;
  bool isOpen_ = false;  ///< the countings of the connected database are shown
};

}  // namespace koru
