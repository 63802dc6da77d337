// What a counter sees while the browser does not keep what the page gives it.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

class PageStorage : public PageWorld {
 protected:
  /// The user of the device erases the data of the page.
  void Erase(Browser& browser) {
    browser.Command(QStringLiteral("Storage.clearDataForOrigin"),
                    {{"origin", QStringLiteral("http://127.0.0.1:%1").arg(port_)},
                     {"storageTypes", "indexeddb,local_storage"}});
  }
  /// The storage of the device is full: what is to be kept further is given up at its end.
  static void Fill(Browser& browser) {
    browser.Run(
        QStringLiteral("window.add = IDBObjectStore.prototype.add;"
                       "IDBObjectStore.prototype.add = function (value) {"
                       "  const request = window.add.call(this, value);"
                       "  request.addEventListener('success', () => this.transaction.abort());"
                       "  return request; }"));
  }
  static void MakeRoom(Browser& browser) {
    browser.Run(QStringLiteral("IDBObjectStore.prototype.add = window.add"));
  }
  /// On a device without network, two figures wait.
  void LeaveTwoWaiting(Browser& browser) {
    Block(browser, {QStringLiteral("*/a/*")});
    test::Count(browser, kCheese, QStringLiteral("2"));
    test::Add(browser, kOil, QStringLiteral("3"));
    WaitForState(browser, kTwoLeft);
  }
  /// On the card of a line, what the page says of a figure that is not kept, with the figure in its field.
  static void WaitForPutBack(Browser& browser, const char* sentence, const char* figure) {
    WaitForText(browser, QStringLiteral("#card .notice:not([hidden])"), Text(sentence));
    EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('figure').value")).toString(),
              Text(figure));
  }

  const QString kTwoLeft = Text("2 در گوشی مانده");
};

TEST_F(PageStorage, A_figure_that_does_not_fit_into_the_device_is_not_entered_and_stays_typed) {
  Browser browser;
  OpenPage(browser);
  Fill(browser);
  OpenCard(browser, kTea);
  browser.Keys(QStringLiteral("5\n"));
  WaitForPutBack(browser, "رقم 5 برای چای ممتاز ثبت نشد، چون گوشی آن را نگه نداشت.", "5");
  WaitForText(browser, QStringLiteral("#card .own"), Text("شمرده نشده"));
  WaitForText(browser, QStringLiteral("#progress-text"), Text("0 از 7"));
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QString());
  MakeRoom(browser);
  ClickButton(browser, Text("دوباره ثبت شود"));
  WaitForDesk(kTea, QStringLiteral("5"));
  WaitForState(browser, kAllArrived);
  EXPECT_FALSE(browser.Shows(QStringLiteral("#banner")));
}

TEST_F(PageStorage, A_figure_to_be_added_that_is_not_kept_is_added_by_the_next_Enter) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("5"));
  WaitForDesk(kTea, QStringLiteral("5"));
  BreakStorage(browser);
  test::Add(browser, kTea, QStringLiteral("7"));
  WaitForPutBack(browser, "رقم 7 برای چای ممتاز ثبت نشد", "7");
  MendStorage(browser);
  browser.Click(QStringLiteral("#figure"));
  browser.Press(BrowserKey::Enter);
  WaitForDesk(kTea, QStringLiteral("12"));
}

TEST_F(PageStorage, A_figure_that_is_not_taken_away_stays_shown) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("5"));
  WaitForDesk(kTea, QStringLiteral("5"));
  WaitForState(browser, kAllArrived);
  BreakStorage(browser);
  Scan(browser, kTea);
  ClickButton(browser, Text("پاک کردن رقم"));
  WaitForPutBack(browser, "رقم چای ممتاز پاک نشد، چون گوشی آن را نگه نداشت.", "");
  WaitForText(browser, QStringLiteral("#card .own"), QStringLiteral("5"));
  MendStorage(browser);
  ClickButton(browser, Text("دوباره ثبت شود"));
  WaitForDesk(kTea, QString());
}

TEST_F(PageStorage, A_figure_that_is_not_kept_after_the_counter_went_on_is_named_until_it_has_been_read) {
  Browser browser;
  OpenPage(browser);
  OpenCard(browser, kTea);
  browser.Keys(QStringLiteral("5"));
  browser.Click(QStringLiteral("#search"));
  Scan(browser, kCheese);
  BreakStorage(browser);
  ClickButton(browser, Text("ثبت شود"));
  WaitForText(browser, QStringLiteral("#banner"),
              Text("رقم 5 برای چای ممتاز ثبت نشد، چون گوشی آن را نگه نداشت."));
  WaitForText(browser, QStringLiteral("#card h2"), Text(kCheese.name));
  MendStorage(browser);
  ClickButton(browser, Text("بستن"));
  Scan(browser, kOil);
  WaitForText(browser, QStringLiteral("#card h2"), Text(kOil.name));
  EXPECT_TRUE(browser.Shows(QStringLiteral("#banner")));
  browser.Click(QStringLiteral("#banner"));
  browser.WaitFor(QStringLiteral("document.getElementById('banner').hidden"));
}

TEST_F(PageStorage, A_browser_in_which_the_page_cannot_begin_reports_that_it_keeps_no_figures) {
  const char* const failures[] = {
      "IDBFactory.prototype.open = () => { throw new DOMException('', 'SecurityError'); }",
      "IDBObjectStore.prototype.put = () => { throw new DOMException('', 'QuotaExceededError'); }",
      "Storage.prototype.getItem = () => { throw new DOMException('', 'SecurityError'); }"};
  for (const char* const failure : failures) {
    SCOPED_TRACE(failure);
    Browser browser;
    browser.Command(QStringLiteral("Page.addScriptToEvaluateOnNewDocument"), {{"source", failure}});
    browser.Open(Url(1));
    WaitForText(browser, QStringLiteral("#empty"),
                Text("این مرورگر رقم‌ها را نگه نمی‌دارد"));
    EXPECT_TRUE(browser.Shows(QStringLiteral("#empty")));
    EXPECT_FALSE(browser.Shows(QStringLiteral("#naming")));
  }
}

TEST_F(PageStorage, Data_that_are_erased_while_figures_wait_take_none_of_those_that_the_page_shows) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("1"));
  WaitForDesk(kTea, QStringLiteral("1"));
  LeaveTwoWaiting(browser);
  Erase(browser);
  WaitForText(browser, QStringLiteral("#banner"),
              Text("داده‌های این صفحه از مرورگر پاک شد."));
  WaitForState(browser, kTwoLeft);
  browser.Reload();
  WaitForState(browser, kTwoLeft);
  browser.Click(QStringLiteral("#state"));
  WaitForText(browser, QStringLiteral("#queue"), Text(kOil.name));
  Block(browser, {});
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("2"));
  EXPECT_EQ(AtDesk(kOil), QStringLiteral("3"));
  EXPECT_EQ(session_->Devices().size(), 1U);
}

TEST_F(PageStorage, Figures_that_are_entered_after_data_were_erased_are_new_to_the_desk) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("1"));
  WaitForDesk(kTea, QStringLiteral("1"));
  WaitForState(browser, kAllArrived);
  Erase(browser);
  test::Count(browser, kCheese, QStringLiteral("2"));
  WaitForDesk(kCheese, QStringLiteral("2"));
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(ShownFigure(browser, kCheese), QStringLiteral("2"));
  EXPECT_EQ(session_->Devices().size(), 1U);
}

TEST_F(PageStorage, An_answer_that_was_not_heard_before_data_were_erased_is_not_entered_again) {
  Browser browser;
  OpenPage(browser);
  MakeDeaf(browser);
  test::Add(browser, kTea, QStringLiteral("5"));
  browser.WaitFor(QStringLiteral("window.lost > 0"));
  Erase(browser);
  WaitForText(browser, QStringLiteral("#banner"),
              Text("داده‌های این صفحه از مرورگر پاک شد."));
  browser.Run(QStringLiteral("window.isDeaf = false"));
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("5"));
}

TEST_F(PageStorage, A_message_whose_reading_cannot_be_kept_stays_and_the_counter_is_asked_to_press_again) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("-3"));
  browser.WaitFor(QStringLiteral("document.getElementById('notices-number').textContent === '1'"));
  Scan(browser, kTea);
  BreakStorage(browser);
  ClickButton(browser, Text("خواندم"));
  WaitForText(browser, QStringLiteral("#banner"), Text("گوشی این تغییر را نگه نداشت."));
  EXPECT_EQ(browser.Text(QStringLiteral("#notices-number")), QStringLiteral("1"));
  MendStorage(browser);
  Scan(browser, kTea);
  ClickButton(browser, Text("خواندم"));
  browser.WaitFor(QStringLiteral("document.getElementById('notices-number').textContent === ''"));
}

TEST_F(PageStorage, Figures_of_a_closed_count_that_cannot_be_moved_or_forgotten_stay_listed) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  test::Count(browser, kTea, QStringLiteral("5"));
  session_->RenewCode(1);
  browser.SetOffline(false);
  browser.Open(QStringLiteral("about:blank"));
  browser.Open(Url(1));
  WaitForText(browser, QStringLiteral("#state"), QStringLiteral("1"));
  browser.Click(QStringLiteral("#state"));
  browser.WaitFor(QStringLiteral("document.querySelectorAll('#list .row').length > 0"));
  WaitForText(browser, QStringLiteral("#queue"), Text("1 رقم از شمارشی است که بسته شده"));
  for (const char* const button : {"فرستادن به این شمارش", "پاک کردن از گوشی"}) {
    SCOPED_TRACE(button);
    BreakStorage(browser);
    ClickButton(browser, Text(button));
    if (ShowsButton(browser, Text("بله، از گوشی پاک شود")))
      ClickButton(browser, Text("بله، از گوشی پاک شود"));
    WaitForText(browser, QStringLiteral("#banner"), Text("گوشی این تغییر را نگه نداشت."));
    MendStorage(browser);
    browser.Click(QStringLiteral("#banner"));
    browser.WaitFor(QStringLiteral("document.getElementById('banner').hidden"));
    WaitForText(browser, QStringLiteral("#queue"), Text(kTea.name));
  }
  ClickButton(browser, Text("فرستادن به این شمارش"));
  WaitForDesk(kTea, QStringLiteral("5"));
  WaitForState(browser, kAllArrived);
}

}  // namespace
}  // namespace koru::test
