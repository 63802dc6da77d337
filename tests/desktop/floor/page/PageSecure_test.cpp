// The page of the https address, whose figures the browser keeps apart from those of the http address.

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageSecure : public PageWorld {
 protected:
  PageSecure() : browser_({.acceptsInsecureCertificates = true}) { ServeSecurely(); }

  /// Opens the page of the https address on a device that has not had it yet, as far as the question.
  void OpenUntilAsked() {
    browser_.Open(Url(1, true));
    GiveName(browser_, Text("رضا"));
    WaitForShown(browser_, "arrived");
  }

  Browser browser_;
};

TEST_F(PageSecure, A_device_that_changes_from_http_is_asked_first_whether_all_has_arrived_and_can_send_it) {
  OpenPage(browser_);
  Block(browser_, {QStringLiteral("http://*/a/*")});
  test::Count(browser_, kTea, QStringLiteral("5"));
  WaitForLeft(browser_, 1);
  OpenUntilAsked();
  WaitForText(browser_, QStringLiteral("#arrived"), Text("همهٔ رقم‌ها رسیده است؟"));
  EXPECT_EQ(AtDesk(kTea), QString());
  Block(browser_, {});
  browser_.Click(QStringLiteral("#plain"));
  browser_.WaitFor(QStringLiteral("location.protocol === 'http:'"));
  WaitForArrival(browser_, kTea, QStringLiteral("5"));
  browser_.Back();
  browser_.WaitFor(QStringLiteral("location.protocol === 'https:'"));
  ClickButton(browser_, Text("نشمرده‌ام یا همه رسیده است"));
  CountArrives(browser_, kCheese, QStringLiteral("2"));
}

TEST_F(PageSecure, Nothing_but_the_question_can_be_reached_and_it_is_asked_once_for_a_device) {
  OpenUntilAsked();
  Scan(browser_, kTea);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#card")));
  EXPECT_TRUE(browser_.Shows(QStringLiteral("#arrived"))) << "a scan is no answer";
  ClickButton(browser_, Text("نشمرده‌ام یا همه رسیده است"));
  WaitForState(browser_, kAllArrived);
  browser_.Reload();
  WaitForState(browser_, kAllArrived);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#arrived")));
  CountArrives(browser_, kTea, QStringLiteral("5"));
}

TEST_F(PageSecure, An_answer_that_the_browser_does_not_keep_lets_the_counter_count) {
  RunBeforePages(
      browser_,
      Text("Storage.prototype.setItem = () => { throw new DOMException('', 'QuotaExceededError'); }"));
  OpenUntilAsked();
  ClickButton(browser_, Text("نشمرده‌ام یا همه رسیده است"));
  WaitForState(browser_, kAllArrived);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#arrived")));
  CountArrives(browser_, kTea, QStringLiteral("5"));
}

TEST_F(PageSecure, The_page_of_the_http_address_does_not_ask) {
  OpenPage(browser_);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#arrived")));
}

}  // namespace
}  // namespace koru::test
