#include "host/AboutDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QIcon>
#include <QLabel>

#include "adapters/system/TemporaryFolder.h"
#include "host/HostSession.h"

namespace koru {
namespace {

TEST(AboutDialog, It_names_the_version_the_log_and_the_settings_and_shows_the_icon) {
  const TemporaryFolder folder;
  qputenv("KORU_LOG", (folder.Path() / "koru.log").c_str());
  QPixmap icon(64, 64);
  icon.fill(Qt::red);
  QApplication::setWindowIcon(QIcon(icon));
  const HostSession session(folder.Path() / "a.ini");
  const AboutDialog dialog(session, nullptr);
  const auto text = [&](const char* name) {
    return dialog.findChild<QLabel*>(QString::fromLatin1(name))->text().toStdString();
  };
  EXPECT_EQ(text("version"), KORU_PROGRAM_VERSION);
  EXPECT_NE(text("log").find((folder.Path() / "koru.log").string()), std::string::npos);
  EXPECT_NE(text("settings").find((folder.Path() / "a.ini").string()), std::string::npos);
  EXPECT_FALSE(dialog.findChild<QLabel*>(QStringLiteral("icon"))->pixmap().isNull());
  qunsetenv("KORU_LOG");
  EXPECT_EQ(AboutDialog(session, nullptr).findChild<QLabel*>(QStringLiteral("log"))->text(),
            QStringLiteral("ثبت نمي\u200cشود"));
  QApplication::setWindowIcon({});
}

}  // namespace
}  // namespace koru
