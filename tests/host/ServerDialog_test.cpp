#include "host/ServerDialog.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "adapters/system/TemporaryFolder.h"
#include "platform/sql/ConnectionText.h"
#include "tests/desktop/WindowTools.h"
#include "tests/tools/tds-stand-in/ScriptedServer.h"

namespace koru {
namespace {

using test::ScriptedServer;
using Answer = ScriptedServer::Answer;

/// The form that connects to a server, filled for a scripted one.
class ServerDialogTest : public testing::Test {
 protected:
  template <class Widget>
  static Widget& Find(QWidget& dialog, const char* name) {
    return *dialog.findChild<Widget*>(QString::fromLatin1(name));
  }
  /// Presses a button and waits until the server has answered.
  static void PressAndWait(QWidget& dialog, const char* button) {
    Find<QAbstractButton>(dialog, button).click();
    EXPECT_FALSE(Find<QAbstractButton>(dialog, button).isEnabled());
    EXPECT_TRUE(Find<QAbstractButton>(dialog, "cancel").isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QAbstractButton>(dialog, button).isEnabled(); }, 60'000));
  }

  TemporaryFolder folder_;
  HostSession session_{folder_.Path() / "a.ini"};
};

TEST_F(ServerDialogTest, The_test_shows_each_check_and_what_failed_without_the_password) {
  ScriptedServer::Script script;
  script.signIn = [] { return Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'clerk'."}; };
  const ScriptedServer server(script);
  ServerDialog dialog(session_, server.ConnectionText(), nullptr);
  test::Open(dialog);
  PressAndWait(dialog, "test");
  const auto& results = Find<QListWidget>(dialog, "results");
  ASSERT_EQ(results.count(), 4);
  EXPECT_EQ(results.item(2)->text(), QStringLiteral("✓ سرور: درست است."));
  EXPECT_TRUE(results.item(3)->text().startsWith(QStringLiteral("✗ ورود: ")));
  EXPECT_TRUE(results.item(3)->text().contains("Login failed for user 'clerk'."));
  EXPECT_FALSE(results.item(3)->text().contains("s3cret"));
  EXPECT_EQ(Find<QLabel>(dialog, "outcome").text(), QStringLiteral("1 مورد درست نيست."));
}

TEST_F(ServerDialogTest, A_server_that_is_reached_gives_its_text_with_the_password) {
  const ScriptedServer server({});
  ServerDialog dialog(session_, server.ConnectionText(), nullptr);
  QTimer::singleShot(0, &dialog, [&] { Find<QAbstractButton>(dialog, "connect").click(); });
  const ConnectionText reached = ConnectionText::Parse(dialog.Ask());
  const ConnectionText given = ConnectionText::Parse(server.ConnectionText());
  for (const char* key : {"Data Source", "User ID", "Password", "Driver"})
    EXPECT_EQ(reached.Get(key), given.Get(key)) << key;
}

TEST_F(ServerDialogTest, A_server_that_refuses_keeps_the_form_open_with_a_sentence) {
  ScriptedServer::Script script;
  script.signIn = [] { return Answer{Answer::Kind::Refusal, 18456, "Login failed for user 'clerk'."}; };
  const ScriptedServer server(script);
  ServerDialog dialog(session_, server.ConnectionText(), nullptr);
  test::Open(dialog);
  PressAndWait(dialog, "connect");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(Find<QLabel>(dialog, "outcome").text().contains("Login failed"));
  test::Press(Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ServerDialogTest, The_form_can_be_left_while_a_server_is_asked) {
  const ScriptedServer server({});
  {
    ServerDialog dialog(session_, server.ConnectionText(), nullptr);
    test::Open(dialog);
    Find<QAbstractButton>(dialog, "test").click();
    Find<QAbstractButton>(dialog, "cancel").click();
    EXPECT_FALSE(dialog.isVisible());
  }
  QCoreApplication::processEvents();  // the answer finds no form
}

TEST_F(ServerDialogTest, The_user_of_the_machine_needs_no_login_and_no_password) {
  ServerDialog dialog(session_, "Provider=SQLOLEDB.1;Data Source=h;Integrated Security=SSPI", nullptr);
  EXPECT_FALSE(Find<QLineEdit>(dialog, "login").isEnabled());
  Find<QCheckBox>(dialog, "integrated").click();
  EXPECT_TRUE(Find<QLineEdit>(dialog, "password").isEnabled());
  EXPECT_EQ(Find<QLineEdit>(dialog, "password").echoMode(), QLineEdit::Password);
}

}  // namespace
}  // namespace koru
