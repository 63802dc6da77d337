// What the desk has answered to figures, until the counter has read it.

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageNotices : public PageWorld {
 protected:
  /// What the list or the card shows, line after line.
  static QStringList Shown(Browser& browser, const char* selector) {
    return browser
        .Run(QStringLiteral(
                 "return [...document.querySelectorAll(arguments[0])].filter(part => !part.hidden && "
                 "part.offsetParent).map(part => part.textContent.replace(/[\\u2066-\\u2069]/g, ''))"
                 ".join('\\n')"),
             {Text(selector)})
        .toString()
        .split(QLatin1Char('\n'));
  }
  static void WaitForShownNotices(Browser& browser, int number) {
    browser.WaitFor(
        QStringLiteral("document.querySelectorAll('#card .notice:not([hidden])').length === %1").arg(number),
        QStringLiteral("the notices of the card"));
  }
  /// Two additions to the tea that the form refuses.
  void RefuseTwo(Browser& browser) {
    OpenPage(browser);
    browser.SetOffline(true);
    test::Add(browser, kTea, QStringLiteral("-3"));
    test::Add(browser, kTea, QStringLiteral("-4"));
    WaitForLeft(browser, 2);
    ConnectAgain(browser, 2);
  }
  /// The device has 70 of the tea without network, the desk 78.
  void WaitWithConflict(Browser& browser) {
    OpenPage(browser);
    CountOffline(browser, kTea, QStringLiteral("70"));
    Set(1, {kTea.barcode, 1}, "78");
  }
};

TEST_F(PageNotices, Each_addition_to_a_line_that_is_deleted_is_a_message) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  test::Add(browser, kTea, QStringLiteral("5"));
  test::Add(browser, kTea, QStringLiteral("3"));
  WaitForLeft(browser, 2);
  DeleteTea();
  ConnectAgain(browser, 2);
  OpenNotices(browser, 2);
  EXPECT_EQ(Shown(browser, "#list .row .number"), (QStringList{"+3", "+5"}));
  browser.Click(QStringLiteral("#list .row"));
  ReadDeleted(browser, QStringLiteral("+3"));
  WaitForNotices(browser, 1);
  OpenNotices(browser, 1);
  EXPECT_EQ(Shown(browser, "#list .row .number"), QStringList{"+5"});
}

TEST_F(PageNotices, The_card_shows_all_notices_of_its_line_and_each_is_read_by_itself) {
  Browser browser;
  RefuseTwo(browser);
  WaitForText(browser, QStringLiteral("#list"), Text("2 پیام"));
  Scan(browser, kTea);
  WaitForShownNotices(browser, 2);
  EXPECT_EQ(Shown(browser, "#card .notice p:nth-child(2)"),
            (QStringList{Text("رقم شما ثبت نشد: -3"), Text("رقم شما ثبت نشد: -4")}))
      << "the oldest first";
  browser.Keys(QStringLiteral("7"));
  ClickButton(browser, Text("خواندم"));
  WaitForNotices(browser, 1);
  WaitForShownNotices(browser, 1);
  EXPECT_EQ(Shown(browser, "#card .notice p:nth-child(2)"), QStringList{Text("رقم شما ثبت نشد: -4")});
  EXPECT_EQ(browser.Run(QStringLiteral("return document.getElementById('figure').value")).toString(),
            QStringLiteral("7"))
      << "what is being typed stays";
}

TEST_F(PageNotices, A_figure_that_is_set_replaces_all_notices_of_its_line) {
  Browser browser;
  RefuseTwo(browser);
  CountArrives(browser, kTea, QStringLiteral("9"));
  WaitForNotices(browser, 0);
}

TEST_F(PageNotices, A_warning_about_an_addition_leaves_the_question_of_an_earlier_figure) {
  Browser browser;
  WaitWithConflict(browser);
  ConnectAgain(browser, 1);
  test::Add(browser, kTea, QStringLiteral("1000000000"));
  ClickButton(browser, Text("مقدار است"));
  WaitForArrival(browser, kTea, QStringLiteral("1000000078"));
  WaitForNotices(browser, 2);
}

TEST_F(PageNotices, Of_two_figures_that_are_set_without_network_the_later_one_is_asked_about) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  test::Count(browser, kTea, QStringLiteral("40"));
  test::Count(browser, kTea, QStringLiteral("50"));
  WaitForLeft(browser, 2);
  Set(1, {kTea.barcode, 1}, "8");
  ConnectAgain(browser, 1);
  Scan(browser, kTea);
  InsistOn(browser, QStringLiteral("50"));
}

TEST_F(PageNotices, A_message_that_was_not_read_is_shown_after_the_desk_has_made_a_new_code) {
  Browser browser;
  WaitWithConflict(browser);
  ConnectAgain(browser, 1);
  session_->RenewCode(1);
  OpenAnew(browser, 1);
  WaitForState(browser, kAllArrived);
  WaitForNotices(browser, 1);
  EXPECT_EQ(ShownFigure(browser, kTea), QStringLiteral("78"));
  OpenNotices(browser, 1);
  EXPECT_EQ(Shown(browser, "#list .row .number"), QStringList{"70"});
  EXPECT_EQ(Shown(browser, "#list .row .below"), QStringList{Text("شمارش اول، با کد پیشین  ·  رقم d1: 78")});
  browser.Click(QStringLiteral("#list .row"));
  WaitForText(browser, QStringLiteral("#card"), Text("شمارش اول، با کد پیشین."));
  WaitForText(browser, QStringLiteral("#card"), Text("رقم d1: 78"));
  WaitForText(browser, QStringLiteral("#card"), Text("رقم شما: 70"));
  ClickButton(browser, Text("باشد"));
  WaitForNotices(browser, 0);
}

TEST_F(PageNotices, An_answer_to_a_figure_of_another_count_is_said_at_once_and_stays_to_be_read) {
  Browser browser;
  WaitWithConflict(browser);
  Block(browser, {QStringLiteral("*/a/*")});
  browser.SetOffline(false);
  OpenAnew(browser, 2);
  WaitForLeft(browser, 1);
  Block(browser, {});
  WaitForBanner(browser, Text("چای ممتاز (شمارش اول، با کد پیشین): در این میان رقم دیگری ثبت شده است."));
  WaitForState(browser, kAllArrived);
  WaitForNotices(browser, 1);
  Scan(browser, kTea);
  WaitForCard(browser, kTea);
  WaitForShownNotices(browser, 0);
  ClickButton(browser, Text("بستن"));
  OpenNotices(browser, 1);
  browser.Reload();
  WaitForNotices(browser, 1);
  OpenAnew(browser, 1);
  WaitForState(browser, kAllArrived);
  Scan(browser, kTea);
  InsistOn(browser, QStringLiteral("70"));
}

TEST_F(PageNotices, A_figure_that_is_added_to_one_without_an_answer_is_asked_about_together_with_it) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  test::Count(browser, kTea, QStringLiteral("40"));
  test::Add(browser, kTea, QStringLiteral("3"));
  test::Add(browser, kTea, QStringLiteral("1"));
  WaitForLeft(browser, 3);
  EXPECT_EQ(ShownFigure(browser, kTea), QStringLiteral("44"));
  Set(1, {kTea.barcode, 1}, "8");
  ConnectAgain(browser, 1);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("8")) << "nobody has counted 11 or 12";
  Scan(browser, kTea);
  WaitForAsked(browser, Text("رقم d1: 8"));
  InsistOn(browser, QStringLiteral("44"));
}

TEST_F(PageNotices, Figures_that_are_set_and_added_without_network_arrive_as_their_sum) {
  Browser browser;
  OpenPage(browser);
  browser.SetOffline(true);
  test::Count(browser, kTea, QStringLiteral("40"));
  test::Add(browser, kTea, QStringLiteral("2.5"));
  test::Add(browser, kCheese, QStringLiteral("3"));
  test::Add(browser, kCheese, QStringLiteral("4"));
  WaitForLeft(browser, 4);
  Set(1, {kCheese.barcode, 1}, "10");
  browser.SetOffline(false);
  WaitForArrival(browser, kTea, QStringLiteral("42.5"));
  WaitForArrival(browser, kCheese, QStringLiteral("17"));
  WaitForNotices(browser, 0);
}

TEST_F(PageNotices, The_question_names_what_the_desk_has_after_an_addition_of_its_counter) {
  Browser browser;
  WaitWithConflict(browser);
  ConnectAgain(browser, 1);
  test::Add(browser, kTea, QStringLiteral("2"));
  WaitForArrival(browser, kTea, QStringLiteral("80"));
  Scan(browser, kTea);
  WaitForAsked(browser, Text("رقم کنونی: 80"));
  InsistOn(browser, QStringLiteral("70"));
}

}  // namespace
}  // namespace koru::test
