// What a counter reads while the desk answers and does not take what it is sent.

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageRefusals : public PageWorld {
 protected:
  /// Waits until the page has no sentence of the desk any more.
  static void WaitUntilTaken(Browser& browser) {
    WaitForState(browser, kAllArrived);
    WaitUntilHidden(browser, "refusal");
  }
};

TEST_F(PageRefusals, A_desk_whose_disk_is_full_says_so_and_figures_stay_on_the_device_until_it_takes_them) {
  Browser browser;
  OpenPage(browser);
  journal_.isFull = true;
  test::Add(browser, kTea, QStringLiteral("7"));
  WaitForText(
      browser, QStringLiteral("#refusal"),
      Text("میز می‌گوید: ميز نمي‌تواند عددها را روي ديسك نگه "
           "دارد."));
  WaitForLeft(browser, 1);
  browser.Click(QStringLiteral("#state"));
  WaitForText(
      browser, QStringLiteral("#queue"),
      Text("میز اکنون رقمی نمی‌پذیرد. این 1 رقم در گوشی می‌ماند"));
  Type(2, LineColumn::FirstCounting, "11");
  browser.Click(QStringLiteral("[data-tab=all]"));
  WaitForText(browser, QStringLiteral("#list"), QStringLiteral("11"));
  EXPECT_TRUE(browser.Shows(QStringLiteral("#refusal"))) << "the desk answers another question";
  journal_.isFull = false;
  WaitUntilTaken(browser);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("7"));
}

TEST_F(PageRefusals, A_device_too_many_reads_so_and_takes_part_once_the_desk_lets_it) {
  FloorServerLimits limits;
  limits.devices = 1;
  ServeWithin(limits);
  Browser first;
  OpenPage(first);
  Browser second;
  second.Open(Url(1));
  GiveName(second, Text("حسن"));
  WaitForText(
      second, QStringLiteral("#refusal"),
      Text("میز می‌گوید: شمار دستگاه‌هاي اين شمارش كامل است."));
  WaitForState(second, Text("میز نمی‌پذیرد"));
  WaitForText(second, QStringLiteral("#empty"), Text("کالاها هنوز خوانده نشده است."));
  OpenQueue(second, Text("میز اکنون رقمی نمی‌پذیرد."));
  CountArrives(first, kTea, QStringLiteral("5"));
  ServeWithin({});
  WaitUntilTaken(second);
  CountArrives(second, kCheese, QStringLiteral("2"));
}

TEST_F(PageRefusals, A_server_that_is_not_the_desk_says_nothing_for_it) {
  Browser browser;
  OpenPage(browser);
  browser.Run(
      QStringLiteral("window.ask = window.fetch;"
                     "window.fetch = async () => new Response('<p>Gateway timeout</p>', { status: 503 })"));
  test::Count(browser, kTea, QStringLiteral("5"));
  WaitForLeft(browser, 1);
  OpenQueue(browser, Text("میز پیدا نیست."));
  EXPECT_FALSE(browser.Shows(QStringLiteral("#refusal")));
  browser.Run(QStringLiteral("window.fetch = window.ask"));
  WaitForDesk(kTea, QStringLiteral("5"));
  WaitUntilTaken(browser);
}

TEST_F(PageRefusals,
       A_barcode_that_the_desk_does_not_list_is_named_with_the_desks_sentence_until_it_is_read) {
  FloorServerLimits limits;
  limits.unknownBarcodes = 1;
  ServeWithin(limits);
  Browser browser;
  OpenPage(browser);
  browser.Keys(kUnlisted + QLatin1Char('\n'));
  WaitForUnlisted();
  browser.Keys(QStringLiteral("6269999999987\n"));
  WaitForBanner(browser,
                Text("بارکد 6269999999987 در میز ثبت نشد: باركدهاي ناشناختهٔ بسياري در ميز مانده است."));
  OpenCard(browser, kTea);
  EXPECT_TRUE(browser.Shows(QStringLiteral("#banner")));
  browser.Keys(QStringLiteral("5\n"));
  WaitForArrival(browser, kTea, QStringLiteral("5"));
  browser.Click(QStringLiteral("#banner"));
  WaitUntilHidden(browser, "banner");
  ServeWithin({});
  CountArrives(browser, kCheese, QStringLiteral("2"));
  EXPECT_EQ(session_->Unknown().size(), 1U) << "it is not sent again";
}

}  // namespace
}  // namespace koru::test
