// What becomes of figures whose data the user of a device erases, or a later version of the page takes over.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageErased : public PageWorld {
 protected:
  /// On a device without network, two figures wait.
  void LeaveTwoWaiting(Browser& browser) {
    Block(browser, {QStringLiteral("*/a/*")});
    test::Count(browser, kCheese, QStringLiteral("2"));
    test::Add(browser, kOil, QStringLiteral("3"));
    WaitForLeft(browser, 2);
  }
  /// Waits until the page says that its data were erased.
  static void WaitForErased(Browser& browser) {
    WaitForBanner(browser, Text("داده‌های این صفحه از مرورگر پاک شد."));
  }
  /// The system lets a tab rest: until it is woken, it makes no connection to its storage.
  static void Rest(Browser& browser) {
    browser.Run(
        QStringLiteral("window.open_ = IDBFactory.prototype.open;"
                       "IDBFactory.prototype.open = () => { throw new DOMException('', 'UnknownError'); }"));
  }
  static void WakeUp(Browser& browser) {
    browser.Run(QStringLiteral("IDBFactory.prototype.open = window.open_"));
  }
};

TEST_F(PageErased, Data_that_are_erased_while_figures_wait_take_none_of_those_that_the_page_shows) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("1"));
  LeaveTwoWaiting(browser);
  EraseData(browser);
  WaitForErased(browser);
  WaitForLeft(browser, 2);
  browser.Reload();
  WaitForLeft(browser, 2);
  OpenQueue(browser, Text(kOil.name));
  Block(browser, {});
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("2"));
  EXPECT_EQ(AtDesk(kOil), QStringLiteral("3"));
}

TEST_F(PageErased, An_unknown_barcode_that_waits_while_data_are_erased_reaches_the_desk) {
  Browser browser;
  OpenPage(browser);
  Block(browser, {QStringLiteral("*/a/*")});
  ScanUnknown(browser, kUnlisted);
  WaitForLeft(browser, 1);
  EraseData(browser);
  WaitForBanner(browser, Text("بارکدهای نرسیده دوباره در گوشی نگه داشته شد."));
  WaitForLeft(browser, 1);
  browser.Reload();
  OpenQueue(browser, kUnlisted);
  Block(browser, {});
  WaitForUnlisted();
  WaitForState(browser, kAllArrived);
}

TEST_F(PageErased, Figures_that_are_entered_after_data_were_erased_are_new_to_the_desk) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("1"));
  EraseData(browser);
  CountArrives(browser, kCheese, QStringLiteral("2"));
  EXPECT_EQ(ShownFigure(browser, kCheese), QStringLiteral("2"));
}

TEST_F(PageErased, An_answer_that_was_not_heard_before_data_were_erased_is_not_entered_again) {
  Browser browser;
  OpenPage(browser);
  AddUnheard(browser, kTea, QStringLiteral("5"));
  EraseData(browser);
  WaitForErased(browser);
  HearAgain(browser);
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("5"));
}

TEST_F(PageErased, A_tab_that_rests_while_another_one_makes_the_data_anew_loses_and_doubles_no_figure) {
  Browser browser;
  OpenPage(browser);
  AddUnheard(browser, kOil, QStringLiteral("3"));
  Block(browser, {QStringLiteral("*/a/*")});
  test::Count(browser, kCheese, QStringLiteral("2"));
  WaitForLeft(browser, 2);
  Rest(browser);
  EraseData(browser);
  const QStringList tabs = OpenSecondTab(browser);
  CountArrives(browser, kTea, QStringLiteral("1"));
  browser.SwitchTo(tabs.front());
  WakeUp(browser);
  WaitForErased(browser);
  WaitForLeft(browser, 2);
  test::Add(browser, kLamp, QStringLiteral("4"));
  HearAgain(browser);
  Block(browser, {});
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("1"));
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("2"));
  EXPECT_EQ(AtDesk(kOil), QStringLiteral("3")) << "it reached the desk before";
  EXPECT_EQ(AtDesk(kLamp), QStringLiteral("4"));
  EXPECT_EQ(browser.Text(QStringLiteral("#notices-number")), QString());
  ASSERT_EQ(session_->Devices().size(), 2U) << "the data of a device are its memory of which one it is";
  for (const FloorDevice& device : session_->Devices()) EXPECT_EQ(device.name, "رضا");
}

TEST_F(PageErased, Figures_of_two_tabs_that_are_open_are_kept_again_and_arrive_once) {
  Browser browser;
  OpenPage(browser);
  Block(browser, {QStringLiteral("*/a/*")});
  const QStringList tabs = OpenSecondTab(browser);
  AddUnheard(browser, kTea, QStringLiteral("5"));
  browser.SwitchTo(tabs.front());
  test::Count(browser, kCheese, QStringLiteral("2"));
  test::Add(browser, kOil, QStringLiteral("3"));
  WaitForLeft(browser, 3);
  EraseData(browser);
  for (const QString& tab : tabs) {
    browser.SwitchTo(tab);
    WaitForErased(browser);
  }
  test::Add(browser, kLamp, QStringLiteral("4"));
  HearAgain(browser);
  browser.SwitchTo(tabs.front());
  Block(browser, {});
  test::Add(browser, kHostile, QStringLiteral("6"));
  for (const QString& tab : tabs) {
    browser.SwitchTo(tab);
    WaitForState(browser, kAllArrived);
  }
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("5"));
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("2"));
  EXPECT_EQ(AtDesk(kOil), QStringLiteral("3"));
  EXPECT_EQ(AtDesk(kLamp), QStringLiteral("4"));
  EXPECT_EQ(AtDesk(kHostile), QStringLiteral("6"));
}

TEST_F(PageErased, Figures_that_an_earlier_version_of_the_page_left_arrive_once_and_its_messages_are_shown) {
  Browser browser;
  browser.Open(Url(1).section(QLatin1Char('#'), 0, 0) + QStringLiteral("nothing"));
  test::FloorWorld::Add(1, {kOil.barcode, 1}, "3");  // its answer was not heard by the device
  browser.Run(
      QStringLiteral("const [code, device, seq, oil, tea] = arguments;"
                     "localStorage.setItem('koru.name', 'رضا');"
                     "return new Promise((resolve, reject) => {"
                     "  const request = indexedDB.open('koru-floor', 2);"
                     "  request.onerror = reject;"
                     "  request.onupgradeneeded = () => {"
                     "    const line = ['code', 'barcode', 'ordinal'];"
                     "    request.result.createObjectStore('figures', {keyPath: line});"
                     "    const notices = request.result.createObjectStore('notices', {keyPath: line});"
                     "    for (const barcode of [oil, tea])"
                     "      notices.put({code, barcode, ordinal: 1, name: barcode, op: 'set', mine: '6',"
                     "                   state: 'refused', theirs: '', message: 'no', by: '', time: 1});"
                     "    request.result.createObjectStore('unknown', {keyPath: ['code', 'barcode']});"
                     "    request.result.createObjectStore('lines', {keyPath: 'code'});"
                     "    request.result.createObjectStore('meta').put(device, 'device');"
                     "    const queue = request.result.createObjectStore('queue', {keyPath: 'seq', "
                     "autoIncrement: true});"
                     "    const figure = {code, count: 1, ordinal: 1, name: '', base: '', time: Date.now()};"
                     "    queue.add({...figure, seq, barcode: oil, op: 'add', text: '3'});"
                     "    queue.add({...figure, barcode: tea, op: 'set', text: '1', time: 5}); };"
                     "  request.onsuccess = () => { request.result.close(); resolve(); }; });"),
      {QString::fromStdString(session_->Code(1)), QString::fromStdString(Device(1)),
       static_cast<qint64>(sequence_), Text(kOil.barcode), Text(kTea.barcode)});
  OpenPage(browser);
  EXPECT_EQ(AtDesk(kOil), QStringLiteral("3"));
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("1"));
  test::Add(browser, kOil, QStringLiteral("4"));
  WaitForArrival(browser, kOil, QStringLiteral("7"));
  EXPECT_EQ(browser.Text(QStringLiteral("#notices-number")), QStringLiteral("2"));
  Scan(browser, kOil);
  ClickButton(browser, Text("خواندم"));
  WaitForNotices(browser, 1);
  ASSERT_EQ(session_->Devices().size(), 2U) << "later figures have another id";
  for (const FloorDevice& device : session_->Devices()) EXPECT_EQ(device.name, "رضا");
}

}  // namespace
}  // namespace koru::test
