// What a counter sees while the browser does not keep what the page gives it.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageStorage : public PageWorld {
 protected:
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
  /// On the card of a line, what the page says of a figure that is not kept, with the figure in its field.
  static void WaitForPutBack(Browser& browser, const char* sentence, const char* figure) {
    WaitForAsked(browser, Text(sentence));
    EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('figure').value")).toString(),
              Text(figure));
  }
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
  WaitForArrival(browser, kTea, QStringLiteral("5"));
  EXPECT_FALSE(browser.Shows(QStringLiteral("#banner")));
}

TEST_F(PageStorage, A_figure_to_be_added_that_is_not_kept_is_added_by_the_next_Enter) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("5"));
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
  CountArrives(browser, kTea, QStringLiteral("5"));
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
  WaitForBanner(browser, Text("رقم 5 برای چای ممتاز ثبت نشد، چون گوشی آن را نگه نداشت."));
  WaitForCard(browser, kCheese);
  MendStorage(browser);
  ClickButton(browser, Text("بستن"));
  OpenCard(browser, kOil);
  EXPECT_TRUE(browser.Shows(QStringLiteral("#banner")));
  browser.Click(QStringLiteral("#banner"));
  WaitUntilHidden(browser, "banner");
}

TEST_F(PageStorage, A_browser_in_which_the_page_cannot_begin_reports_that_it_keeps_no_figures) {
  const char* const failures[] = {
      "IDBFactory.prototype.open = () => { throw new DOMException('', 'SecurityError'); }",
      "IDBObjectStore.prototype.put = () => { throw new DOMException('', 'QuotaExceededError'); }",
      "Storage.prototype.getItem = () => { throw new DOMException('', 'SecurityError'); }"};
  for (const char* const failure : failures) {
    SCOPED_TRACE(failure);
    Browser browser;
    RunBeforePages(browser, Text(failure));
    browser.Open(Url(1));
    WaitForText(browser, QStringLiteral("#empty"),
                Text("این مرورگر رقم‌ها را نگه نمی‌دارد"));
    EXPECT_TRUE(browser.Shows(QStringLiteral("#empty")));
    EXPECT_FALSE(browser.Shows(QStringLiteral("#naming")));
  }
}

TEST_F(PageStorage, A_message_whose_reading_cannot_be_kept_stays_and_the_counter_is_asked_to_press_again) {
  Browser browser;
  OpenPage(browser);
  test::Count(browser, kTea, QStringLiteral("-3"));
  WaitForNotices(browser, 1);
  Scan(browser, kTea);
  BreakStorage(browser);
  ClickButton(browser, Text("خواندم"));
  WaitForBanner(browser, Text("گوشی این تغییر را نگه نداشت."));
  EXPECT_EQ(browser.Text(QStringLiteral("#notices-number")), QStringLiteral("1"));
  MendStorage(browser);
  Scan(browser, kTea);
  ClickButton(browser, Text("خواندم"));
  WaitForNotices(browser, 0);
}

TEST_F(PageStorage, Figures_of_a_closed_count_that_cannot_be_moved_or_forgotten_stay_listed) {
  Browser browser;
  OpenPage(browser);
  CountOffline(browser, kTea, QStringLiteral("5"));
  OpenWithNewCode(browser);
  WaitForState(browser, Text("1 رقم با کد پیشین، فرستاده نشده"));
  OpenQueue(browser, Text("1 رقم با کد پیشین همین شمارش است"));
  for (const char* const button : {"فرستادن به این شمارش", "پاک کردن از گوشی"}) {
    SCOPED_TRACE(button);
    BreakStorage(browser);
    ClickButton(browser, Text(button));
    if (ShowsButton(browser, Text("بله، از گوشی پاک شود")))
      ClickButton(browser, Text("بله، از گوشی پاک شود"));
    WaitForBanner(browser, Text("گوشی این تغییر را نگه نداشت."));
    MendStorage(browser);
    browser.Click(QStringLiteral("#banner"));
    WaitUntilHidden(browser, "banner");
    WaitForText(browser, QStringLiteral("#queue"), Text(kTea.name));
  }
  ClickButton(browser, Text("فرستادن به این شمارش"));
  WaitForArrival(browser, kTea, QStringLiteral("5"));
}

}  // namespace
}  // namespace koru::test
