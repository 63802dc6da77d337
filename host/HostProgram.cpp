#include "host/HostProgram.h"

#include <QApplication>
#include <QStandardPaths>
#include <filesystem>

#include "adapters/sqlite/SqliteConnector.h"
#include "desktop/forms/MessageDialog.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/QtText.h"
#include "host/HostSession.h"
#include "host/HostWindow.h"
#include "host/SampleProgressWindow.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::filesystem::path UserFolder(QStandardPaths::StandardLocation kind) {
  return FromQt(QStandardPaths::writableLocation(kind));
}

/// The sample of the first start; made where it is missing.
std::string SampleFile() {
  const std::filesystem::path folder = UserFolder(QStandardPaths::AppDataLocation);
  std::string file = (folder / "sample.db").string();
  std::error_code error;
  if (std::filesystem::exists(file, error)) return file;
  std::filesystem::create_directories(folder, error);
  if (error)
    throw InputError("پوشة داده هاي برنامه ساخته نشد: " + LeftToRight(folder.string()) + " (" +
                     error.message() + ")");
  SampleProgressWindow().Make(file);
  return file;
}

int ShowHost(const std::string& connection) {
  HostSession session(UserFolder(QStandardPaths::AppConfigLocation) / "koru-counting.ini");
  if (!connection.empty()) session.TestConnection(connection);
  HostWindow window(session);
  if (!connection.empty()) {
    window.Control().SetOLEConnectionString(ToQt(connection));
  } else if (!IsConnection(FromQt(window.Control().OLEConnectionString()))) {
    window.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(SampleFile())));
  }
  window.show();
  window.ReadDatabase();
  return QApplication::exec();
}

/// Nobody reads the error output of a program that was started from a menu.
void ShowSentence(const std::string& sentence) {
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
  MessageDialog dialog;
  dialog.SetFormTitle("خطا");
  dialog.SetFormMessage(sentence);
  dialog.ClearShow();
}

}  // namespace

int RunHostScreen(const std::string& connection, int& argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("koru-counting"));
  QApplication application(argc, argv);
  SetUpApplication(application);
  try {
    return ShowHost(connection);
  } catch (const std::exception& error) {
    ShowSentence(error.what());
    throw;
  }
}

}  // namespace koru
