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

/// Every window of the host is as large as the screen at most, and each of its buttons has the room that its
/// text needs.
class HostScreens : public test::HostWindowTest {
 protected:
  static void CheckRoom(QWidget& window, const char* name) {
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
  }
};

TEST_F(HostScreens, Show_the_first_start_the_list_and_the_choice_of_another_database) {
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  CheckRoom(program->window, "first start");
  program->window.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(database_)));
  program->window.ReadDatabase();
  Find<QLabel>(program->window, "database").setText(QStringLiteral("/srv/suite/counting.db"));
  CheckRoom(program->window, "list");
  Find<QLineEdit>(program->window, "filter").setText(QStringLiteral("پشتي"));
  std::filesystem::remove(database_);
  program->window.ReadDatabase();
  CheckRoom(program->window, "lost database");
}

TEST_F(HostScreens, Show_the_form_that_connects_to_a_server) {
  HostSession session(settings_);
  ServerDialog dialog(
      session,
      "Provider=SQLOLEDB.1;Driver=None;Data Source=192.0.2.10;Initial Catalog=Suite;User ID=counting",
      nullptr);
  test::Open(dialog);
  CheckRoom(dialog, "server");
  Find<QAbstractButton>(dialog, "test").click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QAbstractButton>(dialog, "test").isEnabled(); }, 60'000));
  CheckRoom(dialog, "tested server");
}

TEST_F(HostScreens, Show_backups_and_what_the_program_is) {
  HostSession session(settings_);
  BackupDialog backup(session, "/srv/suite/counting.db", nullptr);
  test::Open(backup);
  CheckRoom(backup, "backup");
  QApplication::setWindowIcon(QIcon(QStringLiteral(KORU_SOURCES "/packaging/icons/256.png")));
  AboutDialog about(session, nullptr);
  test::Open(about);
  CheckRoom(about, "about");
}

TEST_F(HostScreens, Show_the_counting_form) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  ASSERT_TRUE(program->window.Control().View(17));
  CheckRoom(*InvCountingWindow(), "counting form");
}

}  // namespace
}  // namespace koru
