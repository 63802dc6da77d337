#include "host/HostProgram.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>
#include <filesystem>
#include <iostream>
#include <memory>

#include "desktop/forms/MessageDialog.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/QtText.h"
#include "host/HostSession.h"
#include "host/HostWindow.h"
#include "host/ServerConnection.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::filesystem::path UserFolder(QStandardPaths::StandardLocation kind) {
  return FromQt(QStandardPaths::writableLocation(kind));
}

/// A program that was started from a menu has nobody reading its error output.
void ShowSentence(const std::string& title, const std::string& sentence) {
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
  MessageDialog dialog;
  dialog.SetFormTitle(title);
  dialog.SetFormMessage(sentence);
  dialog.ClearShow();
}

/// From the resources of the executable.
QIcon ProgramIcon() {
  QIcon icon;
  for (const char* const size : {"16", "32", "48", "256"})
    icon.addFile(QStringLiteral(":/icons/%1.png").arg(QLatin1String(size)));
  return icon;
}

struct Host {
  explicit Host(const std::filesystem::path& settings) : session(settings) {}
  HostSession session;
  HostWindow window{session, UserFolder(QStandardPaths::AppDataLocation) / "sample.db"};
};

/// Settings that cannot be read are set aside and reported, so that they never keep anybody from working.
std::unique_ptr<Host> OpenHost(const std::filesystem::path& settings) {
  try {
    return std::make_unique<Host>(settings);
  } catch (const InputError& damage) {
    const std::string sentence = std::string(damage.what()) + "\nاين پرونده با نام " +
                                 LeftToRight(IniFile::SetAside(settings).string()) +
                                 " نگه داشته شد و برنامه با تنظيمات تازه باز مي شود.";
    std::cerr << "koru-counting: " << sentence << std::endl;
    ShowSentence("هشدار", sentence);
    return std::make_unique<Host>(settings);
  }
}

int ShowHost(const std::string& connection) {
  const auto host = OpenHost(UserFolder(QStandardPaths::AppConfigLocation) / "koru-counting.ini");
  HostWindow& window = host->window;
  if (!connection.empty()) {
    if (!LacksPassword(connection)) host->session.TestConnection(connection);
    window.Control().SetOLEConnectionString(ToQt(connection));
  }
  window.show();
  window.Start();
  return QApplication::exec();
}

}  // namespace

int RunHostScreen(const std::string& connection, int& argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("koru-counting"));
  QGuiApplication::setDesktopFileName(QStringLiteral("koru-counting"));
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setWindowIcon(ProgramIcon());
  try {
    return ShowHost(connection);
  } catch (const std::exception& error) {
    ShowSentence("خطا", error.what());
    throw;
  }
}

}  // namespace koru
