#include <gtest/gtest.h>

#include <QCheckBox>
#include <algorithm>
#include <fstream>

#include "adapters/sqlite/SqliteConnection.h"
#include "host/BackupDialog.h"
#include "host/BackupProgressDialog.h"
#include "host/Backups.h"
#include "tests/host/HostFixture.h"

namespace koru {
namespace {

using namespace std::chrono_literals;

constexpr BackupTime kTime{2026y / 3 / 20, 14, 5, 7};

TEST(Backups, Are_named_by_the_database_and_the_solar_date) {
  EXPECT_EQ(BackupName("/srv/stock.db", kTime), "stock-1404-12-29-1405.db");
  EXPECT_EQ(AutomaticBackup("/srv/stock.db", kTime), "/srv/backups/stock-auto-1404-12-29-140507.db");
  EXPECT_EQ(EmbeddedFileOf("Provider=SQLite;Data Source=/a.db"), "/a.db");
  EXPECT_EQ(EmbeddedFileOf("Provider=SQLOLEDB.1;Data Source=h;User ID=u"), std::nullopt);
}

/// Backups by the host window.
class HostBackup : public test::HostWindowTest {
 protected:
  [[nodiscard]] std::filesystem::path Folder() const { return folder_.Path() / "backups"; }
  [[nodiscard]] std::vector<std::string> Kept() const {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(Folder(), none))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// Presses a command of the counting form once the form's timer has enabled it.
  static void Press(const char* name) {
    auto* const button = InvCountingWindow()->findChild<QAbstractButton*>(QString::fromLatin1(name));
    ASSERT_TRUE(QTest::qWaitFor([&] { return button->isEnabled(); })) << name;
    button->click();
  }
  /// Opens the temporary counting 17 for changes.
  static void Edit(Program& program) {
    program.window.Control().SetUserID(1);
    ASSERT_TRUE(program.window.Control().View(17));
    Press("cmdEdit");
  }
  [[nodiscard]] bool IsFinal(const std::string& file) const {
    return SqliteConnection(file, SqliteConnection::Mode::Existing, 5s)
               .Number("select Code is not null from tblInventoryCounting where ID = 17") == 1;
  }
};

TEST_F(HostBackup, The_command_takes_one_that_opens_and_says_where_it_is) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  const std::string to = (folder_.Path() / "copy.db").string();
  QString outcome;
  test::WhenDialogOpens([&](QWidget& dialog) {
    static_cast<BackupDialog&>(dialog).BackUpTo(to);
    outcome = dialog.findChild<QLabel*>(QStringLiteral("outcome"))->text();
    dialog.findChild<QAbstractButton*>(QStringLiteral("close"))->click();
  });
  Find<QAbstractButton>(program->window, "backUp").click();
  EXPECT_TRUE(outcome.startsWith(QStringLiteral("پشتيبان گرفته و آزموده شد: "))) << outcome.toStdString();
  program->window.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(to)));
  program->window.ReadDatabase();
  EXPECT_TRUE(program->window.Control().View(17));
}

TEST_F(HostBackup, A_cancelled_one_writes_nothing_and_a_failed_one_says_why) {
  HostSession session(settings_);
  BackupDialog dialog(session, database_, nullptr);
  test::Open(dialog);
  test::WhenDialogOpens(
      [](QWidget& progress) { progress.findChild<QAbstractButton*>(QStringLiteral("stop"))->click(); });
  dialog.BackUpTo(folder_.Path() / "copy.db");
  EXPECT_EQ(Find<QLabel>(dialog, "outcome").text(), QStringLiteral("پشتيبان لغو شد و چيزي نوشته نشد."));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "copy.db"));
  dialog.BackUpTo(database_);
  EXPECT_TRUE(Find<QLabel>(dialog, "outcome").text().startsWith(QStringLiteral("پشتيبان گرفته نشد: ")));
}

TEST_F(HostBackup, A_server_is_backed_up_by_its_own_tools) {
  HostSession session(settings_);
  BackupDialog dialog(session, std::nullopt, nullptr);
  test::Open(dialog);
  EXPECT_FALSE(Find<QAbstractButton>(dialog, "take").isVisible());
}

TEST_F(HostBackup, Before_a_registration_the_setting_decides_and_only_ten_are_kept) {
  {
    const auto program = Start();
    test::Open(program->window);
    program->window.Start();
    test::WhenDialogOpens([&](QWidget& dialog) {
      dialog.findChild<QCheckBox*>(QStringLiteral("automatic"))->click();
      dialog.findChild<QAbstractButton*>(QStringLiteral("close"))->click();
    });
    Find<QAbstractButton>(program->window, "backUp").click();
  }
  std::filesystem::create_directory(Folder());
  for (int day = 10; day < 22; ++day)
    std::ofstream(Folder() / ("a-auto-1400-01-" + std::to_string(day) + "-120000.db")) << "older";
  for (const char* mine : {"a-auto-1400-01-01.db", "b-auto-1400-01-01-120000.db", "a-1400-01-01-1200.db"})
    std::ofstream(Folder() / mine) << "mine";
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  Edit(*program);
  Press("cmdIsFinalized");
  EXPECT_TRUE(IsFinal(database_));
  const std::vector<std::string> kept = Kept();
  ASSERT_EQ(kept.size(), 3 + kKeptAutomaticBackups);
  EXPECT_FALSE(std::filesystem::exists(Folder() / "a-auto-1400-01-12-120000.db"));
  EXPECT_TRUE(std::filesystem::exists(Folder() / "a-auto-1400-01-13-120000.db"));
  std::vector<std::string> automatic;
  std::copy_if(kept.begin(), kept.end(), std::back_inserter(automatic), [](const std::string& name) {
    return name.starts_with("a-auto-") && !name.starts_with("a-auto-1400");
  });
  ASSERT_EQ(automatic.size(), 1U);
  EXPECT_FALSE(IsFinal((Folder() / automatic.front()).string())) << "it has what was stored before";
}

TEST_F(HostBackup, Without_the_setting_none_is_taken) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  Edit(*program);
  Press("cmdIsFinalized");
  EXPECT_TRUE(IsFinal(database_));
  EXPECT_FALSE(std::filesystem::exists(Folder()));
}

TEST_F(HostBackup, One_that_fails_before_a_registration_asks_whether_to_register_without_it) {
  const auto program = Start();
  program->session.Settings().SetBacksUpBeforeRegistration(true);
  std::ofstream(Folder()) << "a file where the folder should be";
  test::Open(program->window);
  program->window.Start();
  std::string asked;
  const auto answer = [&](const char* button) {
    test::WhenDialogOpens([&asked, button](QWidget& dialog) {
      asked = dialog.findChild<QLabel*>(QStringLiteral("message"))->text().toStdString();
      dialog.findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    });
  };
  Edit(*program);
  ASSERT_TRUE(QTest::qWaitFor([] {
    return InvCountingWindow()->findChild<QAbstractButton*>(QStringLiteral("cmdIsFinalized"))->isEnabled();
  }));
  answer("no");
  Press("cmdIsFinalized");
  EXPECT_EQ(asked, "ثبت نهايي بدون پشتيبان انجام شود؟");
  EXPECT_FALSE(IsFinal(database_));
  EXPECT_TRUE(InvCountingWindow()->findChild<QAbstractButton*>(QStringLiteral("cmdCancel"))->isEnabled())
      << "the counting is still being entered";
  answer("yes");
  Press("cmdIsFinalized");
  EXPECT_TRUE(IsFinal(database_));
}

}  // namespace
}  // namespace koru
