#include "tests/browser/Browser.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTcpSocket>

#include "tests/browser/PageServer.h"

namespace koru::test {
namespace {

QString Page(const QString& body) {
  return QStringLiteral("<!doctype html><meta charset=utf-8><title>Page</title>") + body;
}

class BrowserTest : public ::testing::Test {
 protected:
  BrowserTest() {
    pages_.Add(QStringLiteral("/"), Page(QStringLiteral("<h1>شمارش</h1><p hidden>secret</p><input id=count>"
                                                        "<button onclick='count.value = 7'>Seven</button>")));
  }

  PageServer pages_;
};

TEST_F(BrowserTest, A_page_of_a_server_in_this_process_is_loaded_read_and_clicked) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  EXPECT_EQ(browser.Title(), QStringLiteral("Page"));
  EXPECT_EQ(browser.Text(QStringLiteral("h1")), QStringLiteral("شمارش"));
  EXPECT_TRUE(browser.Shows(QStringLiteral("h1")));
  EXPECT_FALSE(browser.Shows(QStringLiteral("p")));
  EXPECT_FALSE(browser.Shows(QStringLiteral("table")));
  browser.Click(QStringLiteral("button"));
  EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('count').value")).toString(),
            QStringLiteral("7"));
}

TEST_F(BrowserTest, Scripts_get_and_return_values_and_wait_for_promises) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  const QJsonArray sent{1, QStringLiteral("دو"), QJsonObject{{"three", true}}};
  EXPECT_EQ(browser.Run(QStringLiteral("return [...arguments]"), sent).toArray(), sent);
  const QString later = QStringLiteral("return fetch('/nothing').then(answer => answer.status)");
  EXPECT_EQ(browser.Run(later).toInt(), 404);
  EXPECT_EQ(pages_.Requests(QStringLiteral("/nothing")), 1);
  try {
    browser.Run(QStringLiteral("throw new Error('no such line')"));
    FAIL() << "the error is lost";
  } catch (const BrowserError& error) {
    EXPECT_NE(std::string(error.what()).find("no such line"), std::string::npos) << error.what();
  }
}

TEST_F(BrowserTest, Keys_need_no_focus_and_may_be_of_any_alphabet) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  browser.Run(QStringLiteral(
      "window.pressed = ''; addEventListener('keydown', event => pressed += event.key + ' ')"));
  browser.Keys(QStringLiteral("6۱٢\n"));
  EXPECT_EQ(browser.Run(QStringLiteral("return pressed")).toString(), QStringLiteral("6 ۱ ٢ Enter "));
  browser.Click(QStringLiteral("#count"));
  browser.Keys(QStringLiteral("۱۲٫۵x"));
  browser.Press(BrowserKey::Backspace);
  EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('count').value")).toString(),
            QStringLiteral("۱۲٫۵"));
}

TEST_F(BrowserTest, A_tab_without_network_reaches_no_server_until_it_is_connected_again) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  const QString reach = QStringLiteral("return fetch('/').then(() => 'reached', () => 'failed')");
  EXPECT_EQ(browser.Run(reach).toString(), QStringLiteral("reached"));
  browser.SetOffline(true);
  EXPECT_EQ(browser.Run(reach).toString(), QStringLiteral("failed"));
  EXPECT_FALSE(browser.Run(QStringLiteral("return navigator.onLine")).toBool());
  browser.SetOffline(false);
  EXPECT_EQ(browser.Run(reach).toString(), QStringLiteral("reached"));
}

TEST_F(BrowserTest, Tabs_are_separate_pages_that_share_their_storage) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  browser.Run(QStringLiteral("window.here = 1; localStorage.setItem('kept', 'yes')"));
  const QString first = browser.CurrentTab();
  browser.OpenTab();
  browser.Open(pages_.Url(QStringLiteral("/")));
  EXPECT_TRUE(browser.Run(QStringLiteral("return window.here ?? null")).isNull());
  EXPECT_EQ(browser.Run(QStringLiteral("return localStorage.getItem('kept')")).toString(),
            QStringLiteral("yes"));
  browser.CloseTab();
  EXPECT_EQ(browser.CurrentTab(), first);
  EXPECT_EQ(browser.Run(QStringLiteral("return window.here")).toInt(), 1);
}

TEST_F(BrowserTest, A_restarted_browser_has_what_the_first_stored_and_another_profile_has_not) {
  const QTemporaryDir profile;
  const BrowserSettings settings{.profile = profile.path()};
  {
    Browser browser(settings);
    browser.Open(pages_.Url(QStringLiteral("/")));
    browser.Run(QStringLiteral("localStorage.setItem('kept', 'yes')"));
  }
  const QString kept = QStringLiteral("return localStorage.getItem('kept')");
  {
    Browser again(settings);
    again.Open(pages_.Url(QStringLiteral("/")));
    EXPECT_EQ(again.Run(kept).toString(), QStringLiteral("yes"));
    again.Kill();
  }
  Browser third(settings);  // the lock that a killed browser leaves in the profile keeps nobody out
  third.Open(pages_.Url(QStringLiteral("/")));
  EXPECT_EQ(third.Run(kept).toString(), QStringLiteral("yes"));
  Browser other;
  other.Open(pages_.Url(QStringLiteral("/")));
  EXPECT_TRUE(other.Run(kept).isNull());
}

TEST_F(BrowserTest, Pages_and_pictures_have_the_size_of_the_window) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("page.png"));
  for (const QSize size : {QSize(360, 640), QSize(1280, 800)}) {
    for (const bool touch : {false, true}) {
      Browser browser({.window = size, .touch = touch});
      pages_.Add(QStringLiteral("/wide"),
                 Page(QStringLiteral("<meta name=viewport content='width=device-width'>text")));
      browser.Open(pages_.Url(QStringLiteral("/wide")));
      EXPECT_EQ(browser.Run(QStringLiteral("return [innerWidth, innerHeight]")).toArray(),
                (QJsonArray{size.width(), size.height()}));
      EXPECT_EQ(browser.Run(QStringLiteral("return navigator.maxTouchPoints > 0")).toBool(), touch);
      browser.Picture(file);
      EXPECT_EQ(QImage(file).size(), size);
    }
  }
}

TEST_F(BrowserTest, A_name_can_be_mapped_to_this_machine_and_is_no_secure_context) {
  Browser browser({.arguments = {QStringLiteral("--host-resolver-rules=MAP desk.test 127.0.0.1")}});
  browser.Open(pages_.Url(QStringLiteral("/"), QStringLiteral("desk.test")));
  EXPECT_EQ(browser.Text(QStringLiteral("h1")), QStringLiteral("شمارش"));
  EXPECT_FALSE(browser.Run(QStringLiteral("return isSecureContext")).toBool());
}

TEST_F(BrowserTest, A_page_that_no_server_has_is_not_opened) {
  // The socket keeps the port from the programs that start meanwhile, and nobody listens there.
  QTcpSocket held;
  ASSERT_TRUE(held.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
  Browser browser;
  EXPECT_THROW(browser.Open(QStringLiteral("http://127.0.0.1:%1/").arg(held.localPort())), BrowserError);
}

TEST_F(BrowserTest, A_wait_in_vain_says_what_the_page_shows_and_wrote) {
  Browser browser;
  browser.Open(pages_.Url(QStringLiteral("/")));
  browser.Run(QStringLiteral("console.error('out of paper'); setTimeout(() => window.later = true)"));
  browser.WaitFor(QStringLiteral("window.later"));
  try {
    browser.WaitFor(QStringLiteral("window.never"), QStringLiteral("the answer"),
                    std::chrono::milliseconds(1));
    FAIL() << "it waits no more";
  } catch (const BrowserError& error) {
    for (const char* const part : {"the answer", "شمارش", "out of paper"})
      EXPECT_NE(std::string(error.what()).find(part), std::string::npos) << error.what();
  }
  EXPECT_THROW(WaitUntil([] { return false; }, QStringLiteral("never"), std::chrono::milliseconds(1)),
               BrowserError);
}

}  // namespace
}  // namespace koru::test
