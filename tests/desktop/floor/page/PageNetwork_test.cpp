// What a counter sees while the network, the desk or the page itself fails, and that no figure is lost by it.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageNetwork : public PageWorld {
 protected:
  void WaitForThree(Browser& browser) {
    WaitForDesk(kTea, QStringLiteral("1"));
    WaitForDesk(kCheese, QStringLiteral("2"));
    WaitForArrival(browser, kOil, QStringLiteral("3"));
  }
  /// Another tab of the browser keeps five of tea, which it cannot send.
  void LeaveFiveInAClosedTab(Browser& browser) {
    const QStringList tabs = OpenSecondTab(browser);
    Block(browser, {QStringLiteral("*/a/*")});
    test::Count(browser, kTea, QStringLiteral("5"));
    WaitForLeft(browser, 1);
    browser.CloseTab();
    browser.SwitchTo(tabs.front());
  }
};

TEST_F(PageNetwork, Figures_without_network_stay_readable_on_the_device_and_arrive_with_the_network) {
  Browser browser;
  OpenPage(browser);
  CountThreeOffline(browser);
  EXPECT_EQ(ShownFigure(browser, kCheese), QStringLiteral("2")) << "counting continues";
  OpenQueue(browser, Text("میز پیدا نیست"));
  WaitForText(browser, QStringLiteral("#queue"), Text(kCheese.name));
  WaitForText(browser, QStringLiteral("#queue"), Text(kCheese.barcode));
  EXPECT_EQ(AtDesk(kTea), QString());
  browser.SetOffline(false);
  WaitForThree(browser);
}

TEST_F(PageNetwork, An_answer_that_is_lost_while_adding_adds_once) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("5"));
  MakeDeaf(browser);
  test::Add(browser, kTea, QStringLiteral("7"));
  WaitForDesk(kTea, QStringLiteral("12"));
  browser.WaitFor(QStringLiteral("window.lost > 1"), QStringLiteral("sent again"));
  EXPECT_EQ(ShownFigure(browser, kTea), QStringLiteral("12"))
      << "what the desk has by now is not added to again";
  Type(1, LineColumn::FirstCounting, "100");  // meanwhile, the desk
  HearAgain(browser);
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("100")) << "not added again";
  browser.WaitFor(QStringLiteral("document.querySelector('#list .number').textContent === '100'"),
                  QStringLiteral("the figure of the desk, which is later than the answer"));
}

TEST_F(PageNetwork, A_desk_that_ends_without_warning_gets_all_figures_after_it_begins_again) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("1"));
  KillDesk();
  test::Count(browser, kCheese, QStringLiteral("2"));
  WaitForLeft(browser, 1);
  StartAndOpen();
  EXPECT_EQ(session_->Left().Cells().size(), 1U) << "the figure of the journal";
  session_->Replay();
  Serve();
  test::Count(browser, kOil, QStringLiteral("3"));
  WaitForThree(browser);
}

TEST_F(PageNetwork, A_closed_tab_keeps_its_figures_for_the_next_one) {
  Browser browser;
  OpenPage(browser);
  const QString first = browser.CurrentTab();
  CountThreeOffline(browser);
  browser.OpenTab();
  const QString second = browser.CurrentTab();
  browser.SwitchTo(first);
  browser.CloseTab();
  browser.SwitchTo(second);
  browser.Open(Url(1));
  WaitForThree(browser);
}

TEST_F(PageNetwork, A_closed_tab_leaves_its_figures_to_the_one_that_is_open_beside_it) {
  Browser browser;
  OpenPage(browser);
  // In a window of its own, it stays visible all the time.
  browser.Run(QStringLiteral(
      "addEventListener('visibilitychange', event => event.stopImmediatePropagation(), true)"));
  LeaveFiveInAClosedTab(browser);
  WaitForArrival(browser, kTea, QStringLiteral("5"));
}

TEST_F(PageNetwork, A_hidden_tab_leaves_the_figures_of_a_closed_one_to_those_that_are_seen) {
  Browser browser;
  browser.Command(QStringLiteral("Page.enable"));
  browser.Command(QStringLiteral("Page.addScriptToEvaluateOnNewDocument"),
                  {{"source",
                    "const begin = setTimeout; window.looks = 0; window.isSeen = false;"
                    "window.setTimeout = (done, time) => begin(done, time === 5000 ? ++looks : time);"
                    "Object.defineProperty(document, 'hidden', {get: () => !isSeen});"}});
  OpenPage(browser);
  LeaveFiveInAClosedTab(browser);
  browser.Run(QStringLiteral("window.before = looks"));
  browser.WaitFor(QStringLiteral("looks > before + 5"));
  EXPECT_EQ(AtDesk(kTea), QString());
  browser.Run(QStringLiteral("isSeen = true"));
  WaitForArrival(browser, kTea, QStringLiteral("5"));
}

TEST_F(PageNetwork, A_browser_that_is_killed_keeps_its_figures) {
  const QTemporaryDir profile;
  BrowserSettings settings;
  settings.profile = profile.path();
  {
    Browser browser(settings);
    OpenPage(browser);
    CountThreeOffline(browser);
    browser.Kill();
  }
  EXPECT_EQ(AtDesk(kTea), QString());
  Browser browser(settings);
  browser.Open(Url(1));
  WaitForThree(browser);
}

TEST_F(PageNetwork, A_temporary_save_pauses_and_Edit_resumes) {
  Browser browser;
  OpenPage(browser);
  Save();
  WaitForState(browser, Text("میز درنگ کرده"));
  test::Count(browser, kTea, QStringLiteral("1"));
  WaitForText(browser, QStringLiteral("#state"), Text("میز درنگ کرده؛ 1 در گوشی مانده"));
  EXPECT_EQ(AtDesk(kTea), QString());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  WaitForArrival(browser, kTea, QStringLiteral("1"));
}

TEST_F(PageNetwork, A_figure_for_a_deleted_line_is_gone_and_its_counter_reads_so) {
  Browser browser;
  OpenPage(browser);
  CountOffline(browser, kTea, QStringLiteral("6"));
  DeleteTea();
  ConnectAgain(browser, 1);
  OpenNotices(browser, 1);
  WaitForText(browser, QStringLiteral("#list"), Text("سطر این کالا دیگر در شمارش نیست"));
  browser.Click(QStringLiteral("#list .row"));
  ReadDeleted(browser, QStringLiteral("6"));
  WaitForNotices(browser, 0);
}

TEST_F(PageNetwork, A_closed_counting_lists_what_has_not_arrived_and_keeps_it) {
  Browser browser;
  OpenPage(browser);
  CountThreeOffline(browser);
  session_->Stop();
  browser.SetOffline(false);
  WaitForState(browser, Text("این شمارش بسته است"));
  WaitForText(browser, QStringLiteral("#queue"), Text("این 3 رقم به میز نرسیده است"));
  WaitForText(browser, QStringLiteral("#queue"), Text(kOil.name));
  browser.Reload();
  WaitForState(browser, Text("این شمارش بسته است"));
  WaitForText(browser, QStringLiteral("#queue"), Text(kOil.name));
}

TEST_F(PageNetwork, Figures_of_a_code_that_was_renewed_are_sent_under_the_new_one_when_the_counter_says_so) {
  Browser browser;
  OpenPage(browser);
  CountThreeOffline(browser);
  session_->RenewCode(1);
  browser.SetOffline(false);
  WaitForState(browser, Text("این شمارش بسته است"));
  OpenAnew(browser, 1);
  browser.WaitFor(QStringLiteral("document.querySelectorAll('#list .row').length > 0"));
  WaitForText(browser, QStringLiteral("#state"), QStringLiteral("3"));
  EXPECT_EQ(AtDesk(kTea), QString()) << "not of itself: it may be another counting";
  browser.Click(QStringLiteral("#state"));
  ClickButton(browser, Text("فرستادن به این شمارش"));
  WaitForThree(browser);
}

TEST_F(PageNetwork, A_page_that_does_not_reach_the_desk_shows_the_lines_that_it_kept) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kTea, QStringLiteral("1"));
  Type(2, LineColumn::FirstCounting, "11");
  browser.WaitFor(QStringLiteral("document.getElementById('list').textContent.includes('11')"));
  Block(browser, {QStringLiteral("*/a/*")});
  browser.Reload();
  WaitForState(browser, Text("میز پیدا نیست"));
  WaitForText(browser, QStringLiteral("#list"), Text(kTea.name));
  EXPECT_EQ(ShownFigure(browser, kTea), QStringLiteral("1")) << "what the desk has answered";
  EXPECT_EQ(ShownFigure(browser, kCheese), QStringLiteral("11")) << "what the desk has changed";
  WaitForText(browser, QStringLiteral("#progress-text"), Text("2 از 7"));
  test::Count(browser, kCheese, QStringLiteral("2"));
  WaitForLeft(browser, 1);
  Block(browser, {});
  WaitForArrival(browser, kCheese, QStringLiteral("2"));
}

TEST_F(PageNetwork, A_new_tab_opens_the_page_and_its_lines_while_the_desk_is_away) {
  Browser browser;
  OpenPage(browser);
  const QString url = browser.Url();
  KillDesk();
  browser.OpenTab();
  browser.Open(url);
  WaitForState(browser, Text("میز پیدا نیست"));
  WaitForText(browser, QStringLiteral("#list"), Text(kTea.name));
}

TEST_F(PageNetwork, An_unknown_barcode_without_network_is_listed_at_the_desk_later) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  ScanUnknown(browser, kUnlisted);
  browser.Reload();  // without network, from the cache or not at all
  browser.SetOffline(false);
  browser.Open(Url(1));
  WaitForUnlisted();
}

TEST_F(PageNetwork, Storage_that_fails_for_a_while_ends_no_sending) {
  Browser browser;
  OpenPage(browser);
  CountOffline(browser, kTea, QStringLiteral("5"));
  BreakStorage(browser);
  browser.SetOffline(false);
  WaitForState(browser, Text("1 در گوشی مانده؛ صفحه را دوباره باز کنید"));
  MendStorage(browser);
  WaitForArrival(browser, kTea, QStringLiteral("5"));
}

TEST_F(PageNetwork, A_line_that_is_deleted_while_the_counter_types_says_so_with_the_typed_figure) {
  Browser browser;
  OpenPage(browser);
  OpenCard(browser, kTea);
  browser.Keys(QStringLiteral("6"));
  DeleteTea();
  ReadDeleted(browser, QStringLiteral("6"));
  WaitUntilHidden(browser, "card");
}

}  // namespace
}  // namespace koru::test
