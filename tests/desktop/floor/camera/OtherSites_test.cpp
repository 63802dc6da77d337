#include <gtest/gtest.h>

#include "tests/browser/PageServer.h"
#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

/// A page of another site in the browser of a counter, who has the page of the floor open in another tab.
class OtherSites : public PageWorld {
 protected:
  OtherSites() {
    site_.Add(QStringLiteral("/"),
              QStringLiteral("<!doctype html><title>Site</title><link rel=icon href='data:,'>"));
    OpenPage(browser_);
    browser_.OpenTab();
    browser_.Open(site_.Url(QStringLiteral("/"), QStringLiteral("site.test")));
  }

  [[nodiscard]] QString DeskOrigin() const { return QStringLiteral("http://127.0.0.1:%1").arg(port_); }
  /// What the site gets when it sends a figure with these fields of the header.
  QString Post(const QString& fields) {
    return browser_
        .Run(QStringLiteral(
                 "return fetch(arguments[0] + '/a/figures', { method: 'POST', mode: arguments[2] ? 'cors' : "
                 "'no-cors',"
                 " headers: JSON.parse(arguments[1]), body: JSON.stringify({ device: 'site', items: ["
                 "{ seq: 1, barcode: arguments[3], ordinal: 1, op: 'set', text: '99', base: '' }] }) })"
                 ".then((answer) => `${answer.type} ${answer.status}`, () => 'blocked')"),
             {DeskOrigin(), fields, fields != QStringLiteral("{}"), QString::fromUtf8(kTea.barcode)})
        .toString();
  }
  [[nodiscard]] QString Authorized() const {
    return QStringLiteral(R"({"Authorization":"Bearer %1","Content-Type":"application/json"})")
        .arg(QString::fromStdString(session_->Code(1)));
  }

  PageServer site_;
  Browser browser_{{.arguments = {QStringLiteral("--host-resolver-rules=MAP site.test 127.0.0.1"),
                                  QStringLiteral("--disable-features=LocalNetworkAccessChecks")}}};
};

TEST_F(OtherSites, A_page_of_another_site_sends_no_figure_even_with_the_code) {
  EXPECT_EQ(Post(QStringLiteral("{}")),
            QStringLiteral("opaque 0"));  // sent, refused, and not shown to the site
  EXPECT_EQ(Post(Authorized()), QStringLiteral("blocked"));
  EXPECT_EQ(AtDesk(kTea), QString());
  EXPECT_EQ(session_->Devices().size(), 1U);
}

TEST_F(OtherSites, A_form_of_another_site_sends_no_figure) {
  browser_.Run(QStringLiteral("document.body.innerHTML = `<form method=post enctype=text/plain "
                              "action='${arguments[0]}/a/figures'>"
                              "<input name='{\"device\":\"site\",\"items\":[],\"x\":\"' value='\"}'></form>`;"
                              "document.forms[0].submit()"),
               {DeskOrigin()});
  browser_.WaitFor(
      QStringLiteral("location.pathname === '/a/figures' && document.readyState === 'complete'"));
  EXPECT_EQ(
      browser_.Run(QStringLiteral("return performance.getEntriesByType('navigation')[0].responseStatus"))
          .toInt(),
      401);
}

TEST_F(OtherSites, No_script_of_another_site_reads_the_lines) {
  const QString read = QStringLiteral(
      "return fetch(arguments[0] + '/a/lines', { headers: JSON.parse(arguments[1]) })"
      ".then((answer) => answer.text(), () => 'blocked')");
  EXPECT_EQ(browser_.Run(read, {DeskOrigin(), Authorized()}).toString(), QStringLiteral("blocked"));
  EXPECT_EQ(browser_.Run(read, {DeskOrigin(), QStringLiteral("{}")}).toString(), QStringLiteral("blocked"));
}

TEST_F(OtherSites, No_other_site_shows_the_page_in_a_frame) {
  static_cast<void>(browser_.Console());
  browser_.Run(QStringLiteral("const frame = document.createElement('iframe'); frame.src = arguments[0];"
                              "document.body.append(frame);"
                              "return new Promise((resolve) => { frame.onload = resolve; })"),
               {DeskOrigin() + QStringLiteral("/")});
  EXPECT_TRUE(browser_.Console().join(QLatin1Char('\n')).contains(QStringLiteral("frame-ancestors")));
}

TEST_F(OtherSites, The_code_is_neither_sent_to_the_site_that_is_opened_next_nor_comes_back_with_Back) {
  site_.Add(QStringLiteral("/next"),
            QStringLiteral("<!doctype html><script>document.title = document.referrer || "
                           "'nothing'</script>"));
  browser_.CloseTab();
  const QString code = QString::fromStdString(session_->Code(1));
  EXPECT_FALSE(browser_.Url().contains(code));
  browser_.Run(QStringLiteral("location.href = arguments[0]"),
               {site_.Url(QStringLiteral("/next"), QStringLiteral("site.test"))});
  browser_.WaitFor(QStringLiteral("document.title === 'nothing'"),
                   QStringLiteral("a page without a referrer"));
  const QJsonArray history = browser_.Command(QStringLiteral("Page.getNavigationHistory"))
                                 .value(QStringLiteral("entries"))
                                 .toArray();
  EXPECT_GE(history.size(), 2);
  for (const QJsonValue& entry : history)
    EXPECT_FALSE(entry.toObject().value(QStringLiteral("url")).toString().contains(code));
}

}  // namespace
}  // namespace koru::test
