#include <QApplication>
#include <QFileInfo>

#include "adapters/sqlite/SqliteConnector.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/QtText.h"
#include "host/HostWindow.h"
#include "host/NewDatabase.h"
#include "host/SampleProgressWindow.h"
#include "host/ServerConnection.h"
#include "host/ServerDialog.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

// The part of the host window that changes to another database.
namespace koru {
namespace {

/// RAII hourglass.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
};

QString FilterOfFiles() { return QStringLiteral("پايگاه داده (*.db);;همة پرونده ها (*)"); }

}  // namespace

std::string HostWindow::FolderOfDatabase() const {
  const QFileInfo file(ToQt(NameOfDatabase(Connection())));
  return file.exists() ? FromQt(file.absolutePath()) : std::string();
}

void HostWindow::UseSample() {
  Try([this] {
    std::error_code error;
    if (!std::filesystem::exists(sampleFile_, error)) {
      std::filesystem::create_directories(sampleFile_.parent_path(), error);
      if (error) {
        throw InputError("پوشة داده هاي برنامه ساخته نشد: " +
                         LeftToRight(sampleFile_.parent_path().string()) + " (" + error.message() + ")");
      }
      SampleProgressWindow().Make(sampleFile_.string());
    }
    Use(EmbeddedConnectionText(sampleFile_.string()));
  });
}

void HostWindow::UseFile() {
  const QString file =
      AskForFile({QStringLiteral("انتخاب پايگاه داده"), ToQt(FolderOfDatabase()), FilterOfFiles()}, this);
  if (!file.isEmpty()) Use(EmbeddedConnectionText(FromQt(file)));
}

void HostWindow::UseNewFile() {
  const QString file =
      AskWhereToSave({QStringLiteral("پايگاه دادة خالي"), ToQt(FolderOfDatabase()), FilterOfFiles()},
                     QStringLiteral("db"), this);
  if (file.isEmpty()) return;
  Try([&] {
    MakeEmptyDatabase(FromQt(file));
    Use(EmbeddedConnectionText(FromQt(file)));
  });
}

void HostWindow::UseServer(const std::string& connection) {
  const std::string reached = ServerDialog(session_, connection, this).Ask();
  if (!reached.empty()) Use(reached);
}

void HostWindow::UseRecent(const std::string& connection) {
  if (LacksPassword(connection)) return UseServer(connection);
  Use(connection);
}

void HostWindow::Use(const std::string& connection) {
  Try([&] {
    {
      const BusyCursor busy;
      session_.TestConnection(connection);  // the old one stays when this one is not usable
    }
    control_->SetOLEConnectionString(ToQt(connection));
    if (Connection() == connection) ReadDatabase();
  });
}

}  // namespace koru
