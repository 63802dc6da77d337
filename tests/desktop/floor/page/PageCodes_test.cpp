// What was entered under an earlier code: of the same counting, which has another code by now, or of another
// counting.

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageCodes : public PageWorld {
 protected:
  /// Scans a barcode that no line has, which does not reach the desk.
  void ScanWithoutNetwork(Browser& browser) {
    OpenPage(browser);
    browser.SetOffline(true);
    ScanUnknown(browser, kUnlisted);
    WaitForLeft(browser, 1);
  }
  /// From now on, window.sent has what the loaded page sends with its calls.
  static void NoteSent(Browser& browser) {
    browser.Run(
        QStringLiteral("const ask = window.fetch; window.sent = [];"
                       "window.fetch = (path, options) => {"
                       "  if (options?.body) window.sent.push([path, options.body]);"
                       "  return ask(path, options); }"));
  }
  /// A tea figure 5 is left on the device when the desk gives the first count another code; its page
  /// is opened.
  void CountBeforeNewCode(Browser& browser) {
    OpenPage(browser);
    CountOffline(browser, kTea, QStringLiteral("5"));
    OpenWithNewCode(browser);
  }
  /// The page says that there is something of an earlier code, until that has been read.
  static void WaitForSaying(Browser& browser) {
    WaitForBanner(browser, Text("رقم یا بارکدی با کد پیشین مانده است"));
  }
  /// Waits until the button says what has not been sent, and nothing else.
  static void WaitForUnsent(Browser& browser, const char* what) {
    WaitForState(browser, Text("%1 با کد پیشین، فرستاده نشده").arg(Text(what)));
  }
  /// Opens the list of what is left. What is of another counting, or may be, cannot be sent to this one.
  static void OpenOthers(Browser& browser, const char* what) {
    OpenQueue(
        browser,
        Text("%1 از شمارش دیگری است و به این شمارش فرستاده نمی‌شود")
            .arg(Text(what)));
    EXPECT_FALSE(ShowsButton(browser, Text("فرستادن به این شمارش")));
  }
  /// Erases what is of an earlier code from the device: that is all that is left.
  static void Forget(Browser& browser) {
    ClickButton(browser, Text("پاک کردن از گوشی"));
    ClickButton(browser, Text("بله، از گوشی پاک شود"));
    WaitForState(browser, kAllArrived);
  }
  /// window.said has all that pages say from now on above their lists.
  static void NoteSayings(Browser& browser) {
    RunBeforePages(browser,
                   QStringLiteral("window.said = ''; addEventListener('DOMContentLoaded', () => {"
                                  "  const banner = document.getElementById('banner');"
                                  "  new MutationObserver(() => { window.said += banner.textContent; })"
                                  "      .observe(banner, { childList: true }); })"));
  }
  /// The desk opens another counting, whose page is opened.
  void OpenAnotherCounting(Browser& browser) {
    ServeAnotherCounting();
    browser.SetOffline(false);
    OpenAnew(browser, 1);
    WaitForText(browser, QStringLiteral("#place"), Text("انبار دو"));
  }
  /// 5 more of the tea and 9 of the cheese are left on the device when the desk opens another counting, whose
  /// page is opened.
  void CountBeforeAnotherCounting(Browser& browser) {
    OpenPage(browser);
    browser.SetOffline(true);
    test::Add(browser, kTea, QStringLiteral("5"));
    test::Count(browser, kCheese, QStringLiteral("9"));
    WaitForLeft(browser, 2);
    OpenAnotherCounting(browser);
  }
};

TEST_F(PageCodes, Figures_of_an_earlier_code_are_the_counters_to_decide_and_the_page_says_so) {
  Browser browser;
  CountBeforeNewCode(browser);
  WaitForUnsent(browser, "1 رقم");
  WaitForSaying(browser);
  EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('state').className")).toString(),
            QStringLiteral("bad"));
  browser.Click(QStringLiteral("#banner"));
  test::Count(browser, kCheese, QStringLiteral("6"));
  WaitForDesk(kCheese, QStringLiteral("6"));
  WaitForUnsent(browser, "1 رقم");
  EXPECT_FALSE(browser.Shows(QStringLiteral("#banner"))) << "said once";
  OpenQueue(browser, Text("1 رقم با کد پیشین همین شمارش است و فرستاده نشده"));
  EXPECT_TRUE(ShowsButton(browser, Text("پاک کردن از گوشی")));
  EXPECT_EQ(AtDesk(kTea), QString());
  ClickButton(browser, Text("فرستادن به این شمارش"));
  WaitForArrival(browser, kTea, QStringLiteral("5"));
}

TEST_F(PageCodes, What_was_said_of_figures_of_an_earlier_code_is_taken_back_when_their_list_is_opened) {
  Browser browser;
  CountBeforeNewCode(browser);
  WaitForSaying(browser);
  OpenQueue(browser, Text("1 رقم با کد پیشین همین شمارش است"));
  WaitUntilHidden(browser, "banner");
}

TEST_F(PageCodes, Figures_of_an_earlier_code_do_not_hide_that_others_wait) {
  Browser browser;
  CountBeforeNewCode(browser);
  WaitForUnsent(browser, "1 رقم");
  browser.SetOffline(true);
  test::Count(browser, kCheese, QStringLiteral("6"));
  OpenQueue(browser, Text("1 رقم با کد پیشین همین شمارش است"));
  WaitForText(browser, QStringLiteral("#queue"),
              Text("میز پیدا نیست. 1 رقم دیگر در گوشی می‌ماند"));
}

TEST_F(PageCodes, Figures_of_an_earlier_code_do_not_hide_that_the_desk_is_away_or_takes_none_now) {
  Browser browser;
  CountBeforeNewCode(browser);
  WaitForUnsent(browser, "1 رقم");
  KillDesk();
  WaitForState(browser, Text("میز پیدا نیست؛ 1 رقم با کد پیشین"));
  StartAndOpen();
  session_->Replay();
  Serve();
  WaitForUnsent(browser, "1 رقم");
  Save();
  WaitForState(browser, Text("میز درنگ کرده؛ 1 رقم با کد پیشین"));
}

TEST_F(PageCodes, Figures_of_another_counting_are_listed_with_their_store_and_never_sent_to_this_one) {
  Browser browser;
  CountBeforeAnotherCounting(browser);
  OpenOthers(browser, "2 رقم");
  WaitForText(browser, QStringLiteral("#queue .rows"), Text("انبار مركزي"));
  WaitForText(browser, QStringLiteral("#queue .rows"), Text("شمارش اول"));
  WaitForText(browser, QStringLiteral("#queue .rows"), Text(kCheese.barcode));
  test::Count(browser, kOil, QStringLiteral("3"));
  WaitForDesk(kOil, QStringLiteral("3"));
  EXPECT_EQ(AtDesk(kTea), QString());
  EXPECT_EQ(AtDesk(kCheese), QString());
  OpenOthers(browser, "2 رقم");
  Forget(browser);
  EXPECT_EQ(AtDesk(kTea), QString());
}

TEST_F(PageCodes, An_addition_whose_answer_was_lost_in_another_counting_does_not_count_again) {
  Browser browser;
  OpenPage(browser);
  AddUnheard(browser, kTea, QStringLiteral("5"));
  WaitForDesk(kTea, QStringLiteral("5"));
  browser.SetOffline(true);
  OpenAnotherCounting(browser);
  OpenOthers(browser, "1 رقم");
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("5"));
}

TEST_F(PageCodes, Figures_of_a_counting_that_is_not_known_are_not_taken_for_figures_of_this_one) {
  Browser browser;
  counting_.clear();  // as a desk of before
  ServeWithin({});
  CountBeforeNewCode(browser);
  OpenOthers(browser, "1 رقم");
}

TEST_F(PageCodes, Lines_that_were_kept_of_another_counting_are_not_shown_as_lines_of_this_one) {
  Browser browser;
  OpenPage(browser);
  counting_ = "00000000000000b2";
  store_ = "انبار دو";
  ServeWithin({});
  Block(browser, {QStringLiteral("*/a/lines")});
  OpenAnew(browser, 1);
  WaitForText(browser, QStringLiteral("#place"), Text("انبار دو"));
  WaitForText(browser, QStringLiteral("#empty:not([hidden])"), Text("در حال خواندن کالاها"));
  EXPECT_EQ(ShownFigure(browser, kTea), QString());
  Block(browser, {});
  WaitForText(browser, QStringLiteral("#list"), Text(kTea.name));
}

TEST_F(PageCodes, An_unknown_barcode_of_an_earlier_code_of_the_count_is_listed_at_the_desk) {
  Browser browser;
  ScanWithoutNetwork(browser);
  NoteSayings(browser);
  OpenWithNewCode(browser);
  WaitForUnlisted();
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(browser.Run(QStringLiteral("return window.said")).toString(), QString())
      << "there is nothing to decide";
}

TEST_F(PageCodes, An_unknown_barcode_of_another_counting_is_listed_on_the_device_until_it_is_erased) {
  Browser browser;
  ScanWithoutNetwork(browser);
  OpenAnotherCounting(browser);
  WaitForUnsent(browser, "1 بارکد");
  WaitForSaying(browser);
  OpenOthers(browser, "1 بارکد");
  WaitForText(browser, QStringLiteral("#queue .rows"), kUnlisted);
  WaitForText(browser, QStringLiteral("#queue .rows"), Text("انبار مركزي"));
  Forget(browser);
  browser.Reload();
  WaitForState(browser, kAllArrived);
  EXPECT_TRUE(session_->Unknown().empty());
}

TEST_F(PageCodes, An_unknown_barcode_of_another_count_is_not_listed_for_this_one) {
  Browser browser;
  ScanWithoutNetwork(browser);
  OpenWithNewCode(browser, 2);
  WaitForUnsent(browser, "1 بارکد");
  EXPECT_TRUE(session_->Unknown().empty());
}

TEST_F(PageCodes, An_unknown_barcode_waits_on_the_device_with_the_figures) {
  Browser browser;
  ScanWithoutNetwork(browser);
  test::Count(browser, kTea, QStringLiteral("5"));
  WaitForLeft(browser, 2);
  OpenQueue(browser,
            Text("میز پیدا نیست. این 1 رقم و 1 بارکد در گوشی می‌ماند"));
  WaitForText(browser, QStringLiteral("#queue .rows"), kUnlisted);
  ClickButton(browser, Text("بستن"));
  WaitUntilHidden(browser, "queue");
  session_->Stop();
  browser.SetOffline(false);
  WaitForText(browser, QStringLiteral("#queue:not([hidden])"), Text("این 1 رقم و 1 بارکد به میز نرسیده است"));
}

TEST_F(PageCodes, The_desk_is_sent_nothing_of_where_a_figure_was_entered) {
  Browser browser;
  OpenPage(browser);
  NoteSent(browser);
  CountArrives(browser, kTea, QStringLiteral("5"));
  ScanUnknown(browser, kUnlisted);
  WaitForUnlisted();
  const QString sent = browser.Run(QStringLiteral("return JSON.stringify(window.sent)")).toString();
  EXPECT_TRUE(sent.contains(QStringLiteral("a/figures")) && sent.contains(QStringLiteral("a/unknown")));
  for (const char* const hidden :
       {"counting", "00000000000000a1", "place", "انبار", "چای", "\"code", "time"}) {
    EXPECT_FALSE(sent.contains(Text(hidden))) << hidden << " in " << sent.toStdString();
  }
}

}  // namespace
}  // namespace koru::test
