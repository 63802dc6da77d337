#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <fstream>

#include "host/ServerConnection.h"
#include "tests/host/HostFixture.h"

namespace koru {
namespace {

/// The choice of a database in the host window.
class HostStart : public test::HostWindowTest {
 protected:
  static bool Chooses(Program& program) { return Find<QWidget>(program.window, "startPage").isVisible(); }
  static std::string Sentence(Program& program) {
    const auto& label = Find<QLabel>(program.window, "startSentence");
    return label.isVisible() ? label.text().toStdString() : "none";
  }
};

TEST_F(HostStart, The_first_start_asks_and_enter_makes_the_sample_and_opens_it) {
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  EXPECT_TRUE(Chooses(*program));
  EXPECT_EQ(Sentence(*program), "none");
  EXPECT_FALSE(std::filesystem::exists(program->folder / "sample.db"));
  EXPECT_FALSE(Find<QWidget>(program->window, "back").isVisible());
  test::Press(Qt::Key_Return);
  EXPECT_FALSE(Chooses(*program));
  EXPECT_TRUE(std::filesystem::exists(program->folder / "sample.db"));
  EXPECT_GT(Find<QTableView>(program->window, "list").model()->rowCount(), 10);

  const auto again = Start(false);
  test::Open(again->window);
  again->window.Start();
  EXPECT_FALSE(Chooses(*again)) << "the last database comes back";
}

TEST_F(HostStart, A_database_that_is_gone_gives_one_sentence_and_the_choice_of_another) {
  { Start()->window.ReadDatabase(); }
  const std::string other = (folder_.Path() / "b.db").string();
  std::filesystem::rename(database_, other);
  const auto program = Start(false);
  program->session.Settings().RememberDatabase(EmbeddedConnectionText(other));
  test::Open(program->window);
  program->window.Start();
  EXPECT_TRUE(Chooses(*program));
  EXPECT_NE(Sentence(*program).find(database_), std::string::npos) << Sentence(*program);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "no message besides";

  auto& recent = Find<QListWidget>(program->window, "recent");
  EXPECT_TRUE(recent.hasFocus());
  EXPECT_EQ(recent.count(), 2);
  EXPECT_EQ(recent.item(0)->text().toStdString(), other);
  test::Press(Qt::Key_Return);
  EXPECT_FALSE(Chooses(*program));
  EXPECT_EQ(program->window.Control().OLEConnectionString().toStdString(), EmbeddedConnectionText(other));
}

TEST_F(HostStart, A_database_that_comes_back_is_opened_by_a_second_try) {
  const auto program = Start();
  const std::string away = (folder_.Path() / "away.db").string();
  std::filesystem::rename(database_, away);
  test::Open(program->window);
  program->window.Start();
  EXPECT_TRUE(Chooses(*program));
  std::filesystem::rename(away, database_);
  Find<QAbstractButton>(program->window, "retry").click();
  EXPECT_FALSE(Chooses(*program));
}

TEST_F(HostStart, A_database_that_is_lost_while_the_list_is_shown_is_reported_by_f5) {
  const auto program = Start();
  test::Open(program->window);
  program->window.Start();
  std::filesystem::rename(database_, folder_.Path() / "away.db");
  test::Press(Qt::Key_F5);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Chooses(*program); }));  // the button is pressed a while
  EXPECT_NE(Sentence(*program).find(database_), std::string::npos) << Sentence(*program);
}

TEST_F(HostStart, The_choice_is_left_with_escape_and_a_database_that_cannot_be_used_changes_nothing) {
  const std::string text = (folder_.Path() / "text.db").string();
  std::ofstream(text) << "no database";
  const auto program = Start();
  program->session.Settings().RememberDatabase(EmbeddedConnectionText(text));
  test::Open(program->window);
  program->window.Start();
  Find<QAbstractButton>(program->window, "chooseDatabase").click();
  EXPECT_TRUE(Chooses(*program));
  auto& recent = Find<QListWidget>(program->window, "recent");
  recent.setFocus();
  recent.setCurrentRow(1);
  std::string shown;
  test::WhenDialogOpens([&](QWidget& dialog) { shown = Acknowledge(dialog); });
  test::Press(Qt::Key_Return);
  EXPECT_NE(shown.find(text), std::string::npos) << shown;
  EXPECT_TRUE(Chooses(*program));
  test::Open(program->window);
  test::Press(Qt::Key_Escape);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !Chooses(*program); }));
  EXPECT_EQ(program->window.Control().OLEConnectionString().toStdString(), EmbeddedConnectionText(database_));
}

TEST_F(HostStart, A_server_whose_password_is_not_kept_opens_the_form_that_asks_for_it) {
  {
    const auto program = Start();
    program->window.Control().SetOLEConnectionString(
        QStringLiteral("Provider=SQLOLEDB.1;Data Source=h;Initial Catalog=Suite;User ID=u;Password=s3cret"));
  }
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  EXPECT_TRUE(Chooses(*program));
  QString server;
  bool atPassword = false;
  test::WhenDialogOpens([&](QWidget& dialog) {
    server = dialog.findChild<QLineEdit*>(QStringLiteral("server"))->text();
    auto* const password = dialog.findChild<QLineEdit*>(QStringLiteral("password"));
    atPassword = password->text().isEmpty() && dialog.focusWidget() == password;
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(server, "h");
  EXPECT_TRUE(atPassword);
  EXPECT_TRUE(Chooses(*program));
}

}  // namespace
}  // namespace koru
