#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include "desktop/toolkit/Application.h"

namespace {

/// What the toolkit complains about fails the test that made it complain.
void FailOnComplaint(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  if (text.startsWith(QLatin1String("This plugin does not support")))
    return;  // what only a real screen can do
  ADD_FAILURE() << "complaint of the toolkit: " << text.toStdString();
}

/// The off-screen display is 800 x 800 unless a file says otherwise.
QString ScreenFile(const QTemporaryDir& folder) {
  QString path = folder.filePath(QStringLiteral("screen.json"));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return {};
  file.write(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": 1920, "height": 1080,
                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  return path;
}

}  // namespace

/// The fonts' library keeps patterns of its own to the end, which are nobody's leak here.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir folder;
  if (qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") == QLatin1String("offscreen")) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + ScreenFile(folder).toUtf8());
  }
  QApplication application(argc, argv);
  koru::SetUpApplication(application);
  qInstallMessageHandler(FailOnComplaint);
  return RUN_ALL_TESTS();
}
