#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

class QGridLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace koru {

/// The choice of a database: the sample, a file, a new file, a server, or one that was used before. Shown at
/// the first start, when the database cannot be read, and when the user wants another one.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  explicit StartPage(QWidget* parent);

  /// `sentence` says why there is a choice; empty: the first start. `recent` are connection texts, the newest
  /// first. `isOpen`: there is a database to return to; otherwise it can be tried again if `wasTried`.
  struct Offer {
    std::string sentence;
    std::vector<std::string> recent;
    bool isOpen = false;
    bool wasTried = false;
  };
  void Show(const Offer& offer);

 signals:
  void sampleWanted();
  void fileWanted();
  void newFileWanted();
  void serverWanted();
  void databaseWanted(const QString& connection);
  void retryWanted();
  void backWanted();

 private:
  void AddChoices(QVBoxLayout& page);
  void AddRecent(QVBoxLayout& page);
  QPushButton* AddChoice(QGridLayout& choices, const char* name, const QString& caption,
                         const QString& description);

  QLabel* sentence_;
  QPushButton* sample_ = nullptr;
  QPushButton* retry_ = nullptr;
  QPushButton* back_ = nullptr;
  QLabel* recentTitle_ = nullptr;
  QListWidget* recent_ = nullptr;
};

}  // namespace koru
