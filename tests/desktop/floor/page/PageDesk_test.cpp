// What a counter sees of what happens at the desk: work, deletion and the end of the counting.

#include "platform/ports/Screen.h"
#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageDesk : public PageWorld {};

TEST_F(PageDesk, Figures_are_under_way_while_the_desk_is_busy_and_arrive_once_afterwards) {
  Browser browser;
  // The page waits less long for an answer before it sends again.
  RunBeforePages(
      browser,
      Text(
          "const wait = window.setTimeout;"
          "window.setTimeout = (then, time, ...others) => wait(then, time === 15000 ? 200 : time, ...others);"
          "const ask = window.fetch; window.sent = 0;"
          "window.fetch = (path, ...others) => {"
          "  if (path === 'a/figures') window.sent += 1; return ask(path, ...others); }"));
  OpenPage(browser);
  {
    const Hourglass hourglass(screen);
    test::Add(browser, kTea, QStringLiteral("5"));
    WaitForState(browser, Text("1 در راه"));
    browser.WaitFor(QStringLiteral("window.sent > 2"), QStringLiteral("it is sent again"));
    test::Count(browser, kCheese, QStringLiteral("2"));
    WaitForState(browser, Text("2 در راه"));
    EXPECT_EQ(ShownFigure(browser, kCheese), QStringLiteral("2")) << "counting continues";
    OpenQueue(browser, Text("این 2 رقم در راه میز است."));
    EXPECT_EQ(AtDesk(kTea), QString());
  }
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("5"));
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("2"));
}

TEST_F(PageDesk, An_answer_that_comes_after_the_count_was_closed_does_not_show_it_as_open) {
  Browser browser;
  OpenPage(browser);
  browser.Run(
      QStringLiteral("const ask = window.fetch; window.fetch = async (path, options) => {"
                     "  const answer = await ask(path, options);"
                     "  if (path !== 'a/figures') return answer;"
                     "  const decided = await answer.json();"
                     "  await new Promise((go) => { window.letGo = go; });"
                     "  return new Response(JSON.stringify({ ...decided, open: false })); }"));
  test::Count(browser, kTea, QStringLiteral("5"));
  browser.WaitFor(QStringLiteral("window.letGo"), QStringLiteral("an answer on its way"));
  session_->Stop();
  WaitForState(browser, Text("این شمارش بسته است"));
  WaitForText(browser, QStringLiteral("#queue:not([hidden])"), Text("این 1 رقم به میز نرسیده است"));
  browser.Run(
      QStringLiteral("const state = document.getElementById('state'); window.shown = '';"
                     "new MutationObserver(() => { window.shown += state.textContent; })"
                     "    .observe(state, { childList: true, subtree: true });"
                     "window.letGo()"));
  WaitForText(browser, QStringLiteral("#queue"),
              Text("همهٔ رقم‌های این گوشی به میز رسیده است."));
  EXPECT_EQ(browser.Run(QStringLiteral("return window.shown")).toString(), QString());
}

TEST_F(PageDesk, Deleting_all_lines_leaves_an_empty_list_and_each_waiting_figure_as_a_message) {
  Browser browser;
  OpenPage(browser);
  CountThreeOffline(browser);
  DeleteAllLines();
  ConnectAgain(browser, 3);
  WaitForText(browser, QStringLiteral("#empty"), Text("این شمارش کالایی ندارد."));
  WaitForText(browser, QStringLiteral("#progress-text"), Text("0 از 0 شمرده"));
  OpenNotices(browser, 3);
  const std::pair<PageGood, const char*> figures[] = {{kTea, "1"}, {kCheese, "2"}, {kOil, "3"}};
  for (const auto& [good, figure] : figures) {
    browser.WaitFor(
        QStringLiteral("[...document.querySelectorAll('#list .row')].some(row => !row.hidden"
                       " && row.querySelector('.name').textContent === '%1'"
                       " && row.querySelector('.below').textContent === 'سطر این کالا دیگر در شمارش نیست'"
                       " && row.querySelector('.number').textContent === '%2')")
            .arg(Text(good.name), Text(figure)));
  }
}

TEST_F(PageDesk, Deleting_all_lines_while_the_counter_types_leaves_the_typed_figure_to_be_read) {
  Browser browser;
  OpenPage(browser);
  OpenCard(browser, kTea);
  browser.Keys(QStringLiteral("6"));
  DeleteAllLines();
  ReadDeleted(browser, QStringLiteral("6"));
  WaitForText(browser, QStringLiteral("#empty"), Text("این شمارش کالایی ندارد."));
}

/// A way in which a counting ends for its counters.
struct Ending {
  const char* name;
  void (*end)(frmInvCounting& form, comInvCounting& program, FakeMessages& messages);
};

void Register(frmInvCounting& form, comInvCounting& /*program*/, FakeMessages& /*messages*/) {
  for (int row = 1; row < form.flexDetail.Rows(); ++row) {
    ASSERT_TRUE(form.flexDetail.UserEdit(row, LineColumn::AcceptedCounting, "12"));
  }
  form.Timer1.Fire();
  ASSERT_TRUE(form.cmdIsFinalized.UserClick());
  ASSERT_TRUE(form.IsFinal());
}

void Cancel(frmInvCounting& form, comInvCounting& /*program*/, FakeMessages& messages) {
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(form.cmdCancel.UserClick());
}

void ShowAnother(frmInvCounting& form, comInvCounting& program, FakeMessages& /*messages*/) {
  form.Timer1.Fire();
  ASSERT_TRUE(form.cmdTmpSave.UserClick());
  ASSERT_TRUE(program.View(10));
}

class PageEnding : public PageWorld, public testing::WithParamInterface<Ending> {
 protected:
  void End() {
    GetParam().end(Desk(), *program_, messages);
    ASSERT_FALSE(session_->IsOpen());
    ASSERT_NE(session_->Ended(), FloorSession::End::None);
  }
  static void WaitForListOfThree(Browser& browser) {
    WaitForState(browser, Text("این شمارش بسته است"));
    WaitForText(browser, QStringLiteral("#queue"),
                Text("این 3 رقم به میز نرسیده است؛ آن‌ها را برای میز "
                     "بخوانید."));
    for (const PageGood& good : {kTea, kCheese, kOil}) {
      WaitForText(browser, QStringLiteral("#queue"), Text(good.name));
      WaitForText(browser, QStringLiteral("#queue"), Text(good.barcode));
    }
  }
};

TEST_P(PageEnding, Shows_that_the_counting_is_closed_and_lists_what_has_not_arrived) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kLamp, QStringLiteral("9"));
  CountThreeOffline(browser);
  End();
  browser.SetOffline(false);
  WaitForListOfThree(browser);
  browser.Reload();
  WaitForListOfThree(browser);
  EXPECT_FALSE(ShowsButton(browser, Text("پاک کردن از گوشی")));
}

TEST_P(PageEnding, Is_seen_by_a_page_that_has_sent_everything) {
  Browser browser;
  OpenPage(browser);
  CountArrives(browser, kLamp, QStringLiteral("9"));
  End();
  WaitForState(browser, Text("این شمارش بسته است"));
  WaitForBanner(browser, Text("رقم‌های تازه به میز نمی‌رسد."));
}

INSTANTIATE_TEST_SUITE_P(By, PageEnding,
                         testing::Values(Ending{"registration", Register}, Ending{"cancel", Cancel},
                                         Ending{"another_counting", ShowAnother}),
                         [](const auto& ending) { return ending.param.name; });

}  // namespace
}  // namespace koru::test
