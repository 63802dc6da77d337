// Several devices, counts and tabs at once.

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageDevices : public PageWorld {
 protected:
  /// One device has 70 without network, another one's 78 is at the desk.
  void MakeConflict(Browser& one, Browser& other) {
    OpenPage(one, 1, Text("رضا"));
    OpenPage(other, 1, Text("حسن"));
    CountOffline(one, kTea, QStringLiteral("70"));
    CountArrives(other, kTea, QStringLiteral("78"));
    ConnectAgain(one, 1);
    EXPECT_EQ(AtDesk(kTea), QStringLiteral("78")) << "the first figure holds";
    Scan(one, kTea);
    WaitForText(one, QStringLiteral("#card"), Text("رقم حسن: 78"));
  }
};

TEST_F(PageDevices, Figures_of_another_device_of_the_count_appear) {
  Browser one;
  Browser other;
  OpenPage(one);
  OpenPage(other);
  test::Count(other, kTea, QStringLiteral("9"));
  one.WaitFor(QStringLiteral("document.querySelector('#list .number').textContent === '9'"));
  Type(1, LineColumn::FirstCounting, "11");
  one.WaitFor(QStringLiteral("document.querySelector('#list .number').textContent === '11'"));
}

TEST_F(PageDevices, Two_devices_on_a_line_are_a_question_and_the_other_figure_may_stay) {
  Browser one;
  Browser other;
  MakeConflict(one, other);
  ClickButton(one, Text("78 بماند"));
  WaitForNotices(one, 0);
  WaitForState(one, kAllArrived);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("78"));
}

TEST_F(PageDevices, Two_devices_on_a_line_are_a_question_and_the_own_figure_may_be_set_anew) {
  Browser one;
  Browser other;
  MakeConflict(one, other);
  InsistOn(one, QStringLiteral("70"));
}

TEST_F(PageDevices, Three_devices_make_three_counts_and_see_their_own_alone) {
  Browser first;
  Browser second;
  Browser third;
  OpenPage(first, 1);
  OpenPage(second, 2);
  OpenPage(third, 3);
  WaitForText(second, QStringLiteral("h1"), Text("شمارش دوم"));
  WaitForText(third, QStringLiteral("h1"), Text("شمارش سوم"));
  test::Count(first, kTea, QStringLiteral("10"));
  test::Count(second, kTea, QStringLiteral("11"));
  test::Count(third, kTea, QStringLiteral("12"));
  WaitForDesk(kTea, QStringLiteral("10"), 1);
  WaitForDesk(kTea, QStringLiteral("11"), 2);
  WaitForDesk(kTea, QStringLiteral("12"), 3);
  EXPECT_EQ(ShownFigure(first, kTea), QStringLiteral("10"));
  EXPECT_EQ(ShownFigure(second, kTea), QStringLiteral("11"));
  EXPECT_EQ(ShownFigure(third, kTea), QStringLiteral("12"));
}

TEST_F(PageDevices, Two_tabs_of_a_device_give_no_number_twice_and_send_each_figure_once) {
  Browser browser;
  OpenPage(browser);
  const QStringList tabs = OpenSecondTab(browser);
  for (int round = 0; round < 3; ++round) {
    for (const QString& tab : tabs) {
      browser.SwitchTo(tab);
      test::Add(browser, kTea, QStringLiteral("1"));
    }
  }
  WaitForArrival(browser, kTea, QStringLiteral("6"));
  EXPECT_EQ(session_->Devices().size(), 1U) << "two tabs are one device";
  EXPECT_EQ(session_->Devices().front().received, 6);
}

TEST_F(PageDevices, Two_tabs_of_a_device_may_make_two_counts) {
  Browser browser;
  OpenPage(browser, 1);
  const QStringList tabs = OpenSecondTab(browser, 2);
  test::Count(browser, kTea, QStringLiteral("22"));
  browser.SwitchTo(tabs.front());
  browser.Reload();
  WaitForState(browser, kAllArrived);
  WaitForText(browser, QStringLiteral("h1"), Text("شمارش اول"));
  test::Count(browser, kTea, QStringLiteral("11"));
  WaitForDesk(kTea, QStringLiteral("11"), 1);
  WaitForDesk(kTea, QStringLiteral("22"), 2);
}

TEST_F(PageDevices, Figures_of_another_count_that_is_open_are_neither_moved_nor_erased) {
  Browser browser;
  OpenPage(browser, 1);
  Block(browser, {QStringLiteral("*/a/*")});
  test::Count(browser, kTea, QStringLiteral("5"));
  WaitForLeft(browser, 1);
  OpenAnew(browser, 2);
  WaitForLeft(browser, 1);
  OpenQueue(browser, Text("میز پیدا نیست. این 1 رقم در گوشی می‌ماند"));
  EXPECT_FALSE(ShowsButton(browser, Text("فرستادن به این شمارش")));
  EXPECT_FALSE(ShowsButton(browser, Text("پاک کردن از گوشی")));
  Block(browser, {});
  WaitForDesk(kTea, QStringLiteral("5"), 1);
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(AtDesk(kTea, 2), QString());
}

TEST_F(PageDevices, Figures_of_another_count_that_is_closed_are_not_moved_into_this_one) {
  Browser browser;
  OpenPage(browser, 1);
  CountOffline(browser, kTea, QStringLiteral("5"));
  OpenWithNewCode(browser, 2);
  WaitForState(browser, Text("1 رقم با کد پیشین، فرستاده نشده"));
  OpenQueue(browser, Text("1 رقم از شمارش دیگری است"));
  EXPECT_FALSE(ShowsButton(browser, Text("فرستادن به این شمارش")));
  EXPECT_TRUE(ShowsButton(browser, Text("پاک کردن از گوشی")));
}

TEST_F(PageDevices, A_figure_that_changes_while_the_counter_types_is_a_question) {
  Browser one;
  Browser other;
  OpenPage(one, 1, Text("رضا"));
  OpenPage(other, 1, Text("حسن"));
  OpenCard(one, kTea);
  one.Keys(QStringLiteral("7"));
  test::Count(other, kTea, QStringLiteral("78"));
  WaitForText(one, QStringLiteral("#card .own"), QStringLiteral("78"));
  one.Keys(QStringLiteral("\n"));
  WaitForNotices(one, 1);
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("78")) << "the first figure holds";
}

TEST_F(PageDevices, The_question_names_what_the_desk_has_by_now_and_the_own_figure_is_set_against_that) {
  Browser one;
  Browser other;
  MakeConflict(one, other);
  test::Count(other, kTea, QStringLiteral("79"));
  WaitForText(one, QStringLiteral("#card .own"), QStringLiteral("79"));
  WaitForText(one, QStringLiteral("#card"), Text("در این میان رقم دیگری ثبت شده است. رقم کنونی: 79"));
  WaitForText(one, QStringLiteral("#list"), Text("رقم کنونی: 79"));
  EXPECT_FALSE(ShowsButton(one, Text("78 بماند")));
  InsistOn(one, QStringLiteral("70"));
}

TEST_F(PageDevices, Adding_leaves_a_question_that_is_not_answered) {
  Browser one;
  Browser other;
  MakeConflict(one, other);
  one.Keys(QStringLiteral("2"));
  ClickButton(one, Text("افزودن"));
  WaitForArrival(one, kTea, QStringLiteral("80"));
  EXPECT_EQ(one.Text(QStringLiteral("#notices-number")), QStringLiteral("1"));
}

TEST_F(PageDevices, Answering_a_question_does_not_lose_the_figure_that_is_being_typed) {
  Browser one;
  Browser other;
  MakeConflict(one, other);
  one.Keys(QStringLiteral("5"));
  ClickButton(one, Text("78 بماند"));
  WaitForAsked(one, Text("مقدار 5 هنوز ثبت نشده است."));
  ClickButton(one, Text("ثبت شود"));
  WaitForDesk(kTea, QStringLiteral("5"));
  WaitForNotices(one, 0);
}

}  // namespace
}  // namespace koru::test
