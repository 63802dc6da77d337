#include <gtest/gtest.h>

#include <QIcon>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTableView>

#include "host/AboutDialog.h"
#include "host/BackupDialog.h"
#include "host/ServerDialog.h"
#include "tests/host/HostFixture.h"

namespace koru {
namespace {

/// The windows of the host as the manual shows them. With KORU_HOST_PICTURES=DIR each becomes a picture
/// there.
class HostPictures : public test::HostWindowTest {
 protected:
  /// The picture of a window; all of its buttons and labels must have the room that their texts need.
  static void Take(QWidget& window, const char* name) {
    QCoreApplication::processEvents();
    const QSize room = window.screen()->availableSize();
    EXPECT_LE(window.width(), room.width()) << name;
    EXPECT_LE(window.height(), room.height()) << name;
    for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
      if (!button->isVisibleTo(&window) || button->text().isEmpty()) continue;
      EXPECT_GE(button->width(), button->minimumSizeHint().width())
          << name << ": " << button->text().toStdString();
      const QRect place(button->mapTo(&window, QPoint()), button->size());
      EXPECT_TRUE(window.rect().contains(place)) << name << ": " << button->text().toStdString();
    }
    const QString folder = qEnvironmentVariable("KORU_HOST_PICTURES");
    if (folder.isEmpty()) return;
    EXPECT_TRUE(window.grab().save(folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png")));
  }
};

TEST_F(HostPictures, Of_the_first_start_the_list_and_the_choice_of_another_database) {
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  Take(program->window, "host-first-start");
  program->window.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(database_)));
  program->window.ReadDatabase();
  Find<QLabel>(program->window, "database").setText(QStringLiteral("/srv/suite/counting.db"));
  Take(program->window, "host-list");
  Find<QLineEdit>(program->window, "filter").setText(QStringLiteral("پشتي"));
  std::filesystem::remove(database_);
  program->window.ReadDatabase();
  Take(program->window, "lost-database");
}

TEST_F(HostPictures, Of_the_form_that_connects_to_a_server) {
  HostSession session(settings_);
  ServerDialog dialog(
      session,
      "Provider=SQLOLEDB.1;Driver=None;Data Source=192.0.2.10;Initial Catalog=Suite;User ID=counting",
      nullptr);
  test::Open(dialog);
  Take(dialog, "host-server");
  Find<QAbstractButton>(dialog, "test").click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QAbstractButton>(dialog, "test").isEnabled(); }, 60'000));
  Take(dialog, "server-tested");
}

TEST_F(HostPictures, Of_backups_and_of_what_the_program_is) {
  HostSession session(settings_);
  BackupDialog backup(session, "/srv/suite/counting.db", nullptr);
  test::Open(backup);
  Take(backup, "host-backup");
  QApplication::setWindowIcon(QIcon(QStringLiteral(KORU_SOURCES "/packaging/icons/256.png")));
  AboutDialog about(session, nullptr);
  test::Open(about);
  Take(about, "about");
}

TEST_F(HostPictures, Of_the_counting_form) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  ASSERT_TRUE(program->window.Control().View(17));
  Take(*InvCountingWindow(), "counting-form");
}

}  // namespace
}  // namespace koru
