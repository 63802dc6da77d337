// What a counter does with the page, and what reaches the desk.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

class PageEntry : public PageWorld {
 protected:
  /// Presses a key as a keyboard of another layout does: a character, and the place of its key.
  void PressPlaced(const char* character, const char* place) {
    browser_.Command(
        QStringLiteral("Input.dispatchKeyEvent"),
        {{"type", "keyDown"}, {"key", Text(character)}, {"text", Text(character)}, {"code", place}});
    browser_.Command(QStringLiteral("Input.dispatchKeyEvent"),
                     {{"type", "keyUp"}, {"key", Text(character)}, {"code", place}});
  }

  /// Scans LED-60-W as a Persian layout gives it.
  void ScanLampInPersianLayout() {
    const std::pair<const char*, const char*> keys[] = {{"م", "KeyL"},  {"ث", "KeyE"},   {"ی", "KeyD"},
                                                        {"-", "Minus"}, {"۶", "Digit6"}, {"۰", "Digit0"},
                                                        {"-", "Minus"}, {"ص", "KeyW"}};
    for (const auto& [character, place] : keys) PressPlaced(character, place);
    browser_.Press(BrowserKey::Enter);
  }

  Browser browser_;
};

TEST_F(PageEntry, A_scan_without_any_focus_opens_its_line_and_the_typed_figure_reaches_the_desk) {
  OpenPage(browser_);
  browser_.Run(QStringLiteral("document.activeElement.blur()"));
  OpenCard(browser_, kTea);
  WaitForText(browser_, QStringLiteral("#card dl"), Text(kTea.code));
  WaitForText(browser_, QStringLiteral("h1"), Text("شمارش اول انبار مركزي"));
  browser_.Keys(QStringLiteral("12.5\n"));
  WaitForArrival(browser_, kTea, QStringLiteral("12.5"));
  EXPECT_EQ(ShownFigure(browser_, kTea), QStringLiteral("12.5"));
  EXPECT_EQ(CellOf(1, LineColumn::SecondCounting), "") << "the count of another code";
}

TEST_F(PageEntry, The_code_leaves_the_address_bar_at_once) {
  OpenPage(browser_);
  EXPECT_FALSE(browser_.Url().contains(QString::fromStdString(session_->Code(1))))
      << browser_.Url().toStdString();
  browser_.Reload();
  WaitForState(browser_, kAllArrived);
}

TEST_F(PageEntry,
       A_code_that_is_cut_off_in_the_middle_of_an_encoded_letter_is_one_that_the_desk_does_not_know) {
  browser_.Open(Url(1).section(QLatin1Char('#'), 0, 0) + QStringLiteral("#abc%D"));
  GiveName(browser_, Text("رضا"));
  WaitForState(browser_, Text("این شمارش بسته است"));
  WaitForText(browser_, QStringLiteral("#empty"), Text("این شمارش بسته است."));
}

TEST_F(PageEntry, The_desk_knows_the_device_by_the_name_that_it_was_asked_for_once) {
  OpenPage(browser_, 1, Text("تبلت انبار"));
  WaitUntil([&] { return !session_->Devices().empty() && session_->Devices().front().name == "تبلت انبار"; },
            QStringLiteral("no name"));
  browser_.Reload();
  WaitForState(browser_, kAllArrived);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#naming")));
  EXPECT_EQ(session_->Devices().size(), 1U) << "it is the same device after a reload";
}

TEST_F(PageEntry, Digits_of_Persian_and_Arabic_keyboards_are_figures) {
  OpenPage(browser_);
  test::Count(browser_, kTea, Text("۱۲"));
  WaitForDesk(kTea, QStringLiteral("12"));
  test::Count(browser_, kCheese, Text("٣٫٥"));
  WaitForDesk(kCheese, QStringLiteral("3.5"));
  test::Count(browser_, kOil, Text("۱٬۵۰۰"));
  WaitForDesk(kOil, QStringLiteral("1500"));
  browser_.Keys(Text("۶۲۶۰۱۰۰۰۰۰۰۱۷\n"));
  WaitForCard(browser_, kTea);
}

TEST_F(PageEntry, Letters_of_a_scanner_on_a_Persian_keyboard_are_read_by_the_places_of_their_keys) {
  OpenPage(browser_);
  ScanLampInPersianLayout();
  WaitForCard(browser_, kLamp);
}

TEST_F(PageEntry, Figures_are_set_and_added_by_two_buttons_and_zero_is_not_nothing) {
  OpenPage(browser_);
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("5"));
  ClickButton(browser_, Text("ثبت"));
  WaitForDesk(kTea, QStringLiteral("5"));
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("7"));
  ClickButton(browser_, Text("افزودن"));
  WaitForArrival(browser_, kTea, QStringLiteral("12"));
  CountArrives(browser_, kTea, QStringLiteral("0"));
  Scan(browser_, kTea);
  browser_.Press(BrowserKey::Enter);
  WaitForAsked(browser_, Text("مقدار را بنویسید"));
  EXPECT_EQ(AtDesk(kTea), QStringLiteral("0")) << "Enter in an empty field takes nothing away";
  ClickButton(browser_, Text("پاک کردن رقم"));
  WaitForDesk(kTea, QString());
}

TEST_F(PageEntry, A_barcode_that_no_line_has_is_shown_in_red_and_listed_at_the_desk) {
  OpenPage(browser_);
  ScanUnknown(browser_, kUnlisted);
  WaitForText(browser_, QStringLiteral("#unknown"), kUnlisted);
  WaitForUnlisted();
  OpenCard(browser_, kTea);
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#unknown"))) << "the next scan is ready at once";
  ClickButton(browser_, Text("بستن"));
  browser_.Keys(Text("هیچ کالایی\n"));
  WaitForText(browser_, QStringLiteral("#empty"), Text("کالایی پیدا نشد"));
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#unknown"))) << "a word is no barcode";
}

TEST_F(PageEntry, A_barcode_in_the_field_of_the_figure_is_asked_back_and_found) {
  OpenPage(browser_);
  Scan(browser_, kTea);
  Scan(browser_, kCheese);
  WaitForAsked(browser_, Text("مقدار است یا بارکد"));
  browser_.Press(BrowserKey::Enter);
  WaitForCard(browser_, kCheese);
  browser_.Keys(QStringLiteral("3\n"));
  WaitForDesk(kCheese, QStringLiteral("3"));
  EXPECT_EQ(AtDesk(kTea), QString());
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("123456789\n"));
  ClickButton(browser_, Text("مقدار است"));
  WaitForDesk(kTea, QStringLiteral("123456789"));
}

TEST_F(PageEntry, What_is_no_number_is_not_sent) {
  OpenPage(browser_);
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("12x\n"));
  WaitForAsked(browser_, Text("عدد نیست"));
  EXPECT_EQ(AtDesk(kTea), QString());
}

TEST_F(PageEntry, A_refusal_and_a_warning_of_the_form_are_read_on_the_line) {
  OpenPage(browser_);
  test::Count(browser_, kTea, QStringLiteral("-3"));
  WaitForBanner(browser_, Text("تعداد كمتر از اندازة مجاز است."));
  WaitForText(browser_, QStringLiteral("#list"), Text("تعداد كمتر از اندازة مجاز است."));
  EXPECT_EQ(AtDesk(kTea), QString());
  Scan(browser_, kTea);
  WaitForText(browser_, QStringLiteral("#card .notice.bad"), QStringLiteral("-3"));
  ClickButton(browser_, Text("خواندم"));
  WaitForNotices(browser_, 0);
  Scan(browser_, kCheese);
  browser_.Keys(QStringLiteral("1000000001\n"));
  ClickButton(browser_, Text("مقدار است"));
  WaitForText(browser_, QStringLiteral("#list"), Text("تعداد بيشتر از اندازة مجاز است."));
  EXPECT_EQ(AtDesk(kCheese), QStringLiteral("1000000001"));
  EXPECT_EQ(NewMessages(), Texts{}) << "nothing at the desk";
}

TEST_F(PageEntry, The_left_lines_and_the_progress_follow_the_figures) {
  OpenPage(browser_);
  WaitForText(browser_, QStringLiteral("#progress-text"), Text("0 از 7"));
  test::Count(browser_, kTea, QStringLiteral("4"));
  WaitForText(browser_, QStringLiteral("#progress-text"), Text("1 از 7"));
  browser_.Click(QStringLiteral("[data-tab=left]"));
  browser_.WaitFor(
      QStringLiteral("[...document.querySelectorAll('#list .row')].filter(row => !row.hidden).length === 6"));
  browser_.Click(QStringLiteral("[data-tab=done]"));
  browser_.WaitFor(
      QStringLiteral("[...document.querySelectorAll('#list .row')].filter(row => !row.hidden).length === 1"));
  EXPECT_EQ(ShownFigure(browser_, kTea), QStringLiteral("4"));
}

TEST_F(PageEntry, Searching_takes_both_keyboards_letters_words_in_any_order_and_parts_of_codes) {
  OpenPage(browser_);
  const auto found = [&](const char* typed) {
    browser_.Run(QStringLiteral(
        "document.getElementById('search').focus(); document.getElementById('search').select()"));
    browser_.Press(BrowserKey::Delete);
    browser_.Keys(Text(typed));
    browser_.WaitFor(QStringLiteral("document.getElementById('progress-text').textContent.includes('کالا')"));
    // The list is drawn with the next frame.
    browser_.Run(QStringLiteral(
        "return new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))"));
    QStringList names;
    const QJsonArray shown =
        browser_
            .Run(QStringLiteral(
                "return [...document.querySelectorAll('#list .row')].filter(row => !row.hidden)"
                ".map(row => row.querySelector('.name').textContent)"))
            .toArray();
    for (const QJsonValue& name : shown) names.append(name.toString());
    return names;
  };
  EXPECT_EQ(found("روغن مایع کنجد"), QStringList{Text(kOil.name)});
  EXPECT_EQ(found("كنجد روغن"), QStringList{Text(kOil.name)});
  EXPECT_EQ(found("نمک کم"), QStringList{Text(kCheese.name)});
  EXPECT_EQ(found("کمنمک"), QStringList{Text(kCheese.name)});
  EXPECT_EQ(found("led"), QStringList{Text(kLamp.name)});
  EXPECT_EQ(found("۱۰۴"), QStringList{Text(kLamp.name)});
  EXPECT_EQ(found("0000055"), QStringList{Text(kTurned.name)});
}

TEST_F(PageEntry, Names_are_text_whatever_they_contain) {
  OpenPage(browser_);
  test::Count(browser_, kHostile, QStringLiteral("1"));
  test::Count(browser_, kTurned, QStringLiteral("-3"));
  WaitForBanner(browser_, Text("تعداد كمتر از اندازة مجاز است."));
  OpenCard(browser_, kHostile);
  EXPECT_EQ(browser_.Run(QStringLiteral("return document.querySelectorAll('img').length")).toInt(), 0);
  EXPECT_FALSE(browser_.Title().contains(QStringLiteral("run")));
  // An override ends with the name: the figure beside it keeps its direction.
  EXPECT_EQ(
      browser_
          .Run(QStringLiteral("return getComputedStyle(document.querySelector('#list .name')).unicodeBidi"))
          .toString(),
      QStringLiteral("isolate"));
  EXPECT_TRUE(browser_.Text(QStringLiteral("#banner")).isEmpty() ||
              !browser_.Shows(QStringLiteral("#banner")));
  for (const QString& line : browser_.Console()) ADD_FAILURE() << line.toStdString();
}

TEST_F(PageEntry, The_data_that_is_sent_has_neither_stock_nor_another_count) {
  Set(2, {kTea.barcode, 1}, "8181");
  OpenPage(browser_);
  const QString wire = browser_
                           .Run(QStringLiteral("return fetch('a/lines', {headers: {Authorization: 'Bearer ' "
                                               "+ localStorage.getItem('koru.code')}})"
                                               ".then(answer => answer.text())"))
                           .toString();
  EXPECT_TRUE(wire.contains(Text(kTea.barcode)));
  EXPECT_FALSE(wire.contains(QStringLiteral("8181"))) << "the second count";
  EXPECT_FALSE(wire.contains(QStringLiteral("4444"))) << "the book stock";
}

TEST_F(PageEntry, A_scan_after_a_search_replaces_what_was_searched_for) {
  OpenPage(browser_);
  browser_.Keys(Text("چای"));
  WaitForText(browser_, QStringLiteral("#progress-text"), Text("1 کالا"));
  browser_.Click(QStringLiteral("#list .row"));
  WaitForCard(browser_, kTea);
  browser_.Keys(QStringLiteral("5\n"));
  WaitUntilHidden(browser_, "card");
  OpenCard(browser_, kCheese);
}

TEST_F(PageEntry, A_scan_after_a_search_that_Enter_ended_replaces_it_on_a_keyboard_of_other_letters_too) {
  OpenPage(browser_);
  browser_.Keys(Text("هیچ کالایی\n"));
  WaitForText(browser_, QStringLiteral("#empty"), Text("کالایی پیدا نشد"));
  ScanLampInPersianLayout();
  WaitForCard(browser_, kLamp);
}

TEST_F(PageEntry, A_scanned_barcode_of_8_digits_is_no_figure_before_the_counter_says_so) {
  OpenPage(browser_);
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("12345670\n"));
  WaitForAsked(browser_, Text("مقدار است یا بارکد"));
  EXPECT_EQ(AtDesk(kTea), QString());
  ClickButton(browser_, Text("مقدار است"));
  WaitForDesk(kTea, QStringLiteral("12345670"));
}

TEST_F(PageEntry, A_short_barcode_and_a_code_of_another_line_are_no_figures_before_the_counter_says_so) {
  AddGood({"4711", "108", "نمک"});
  AddGood({"6260100000079", "200300", "برنج"});
  OpenPage(browser_);
  for (const char* scanned : {"4711", "200300"}) {
    Scan(browser_, kTea);
    browser_.Keys(Text(scanned) + QLatin1Char('\n'));
    WaitForAsked(browser_, Text("مقدار است یا بارکد"));
    ClickButton(browser_, Text("بستن"));
  }
  CountArrives(browser_, kTea, QStringLiteral("102"));
}

TEST_F(PageEntry, A_part_of_a_barcode_opens_no_line_by_itself) {
  OpenPage(browser_);
  browser_.Keys(QStringLiteral("0000024\n"));
  WaitForBanner(browser_, Text("کالایی درست با این بارکد نیست؛ از فهرست برگزینید."));
  EXPECT_FALSE(browser_.Shows(QStringLiteral("#card")));
  WaitForText(browser_, QStringLiteral("#list"), Text(kCheese.name));
  OpenCard(browser_, kTea);
}

TEST_F(PageEntry, A_typed_figure_is_asked_for_before_another_good_replaces_it) {
  OpenPage(browser_);
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("5"));
  browser_.Click(QStringLiteral("#search"));
  Scan(browser_, kCheese);
  WaitForAsked(browser_, Text("مقدار 5 هنوز ثبت نشده است."));
  ClickButton(browser_, Text("ثبت نشود"));
  WaitForCard(browser_, kCheese);
  browser_.Keys(QStringLiteral("8"));
  browser_.Click(QStringLiteral("#search"));
  Scan(browser_, kOil);
  ClickButton(browser_, Text("ثبت شود"));
  WaitForCard(browser_, kOil);
  WaitForDesk(kCheese, QStringLiteral("8"));
  EXPECT_EQ(AtDesk(kTea), QString());
}

TEST_F(PageEntry, A_scan_after_a_typed_figure_is_taken_apart_from_it) {
  OpenPage(browser_);
  OpenCard(browser_, kTea);
  browser_.Keys(QStringLiteral("12"));
  Scan(browser_, kCheese);
  WaitForAsked(browser_, Text("مقدار 12 هنوز ثبت نشده است."));
  ClickButton(browser_, Text("ثبت شود"));
  WaitForCard(browser_, kCheese);
  WaitForDesk(kTea, QStringLiteral("12"));
}

TEST_F(PageEntry, A_scan_into_the_figure_that_several_lines_have_lists_them) {
  AddGood({"6260100000079", "300400", "برنج دانه‌بلند"});
  AddGood({"6260100000086", "300400", "برنج نیم‌دانه"});
  OpenPage(browser_);
  Scan(browser_, kTea);
  browser_.Keys(QStringLiteral("300400\n"));
  ClickButton(browser_, Text("بارکد است؛ پیدا شود"));
  WaitUntilHidden(browser_, "card");
  WaitForText(browser_, QStringLiteral("#progress-text"), Text("2 کالا"));
  WaitForText(browser_, QStringLiteral("#list"), Text("برنج دانه‌بلند"));
  OpenCard(browser_, kCheese);
}

TEST_F(PageEntry, UPC_A_is_found_with_and_without_its_leading_zero) {
  AddGood({"012345678905", "108", "شامپو"});
  AddGood({"0036000291452", "109", "دستمال"});
  OpenPage(browser_);
  browser_.Keys(QStringLiteral("0012345678905\n"));
  WaitForText(browser_, QStringLiteral("#card h2"), Text("شامپو"));
  browser_.Press(BrowserKey::Escape);
  browser_.Keys(QStringLiteral("036000291452\n"));
  WaitForText(browser_, QStringLiteral("#card h2"), Text("دستمال"));
}

TEST_F(PageEntry, Tab_ends_a_scan_as_Enter_does) {
  OpenPage(browser_);
  browser_.Keys(Text(kTea.barcode));
  browser_.Press(BrowserKey::Tab);
  WaitForCard(browser_, kTea);
}

TEST_F(PageEntry, Nothing_but_the_name_can_be_reached_while_it_is_asked_for) {
  browser_.Open(Url(1));
  WaitForShown(browser_, "naming");
  const QString reached = QStringLiteral(
      "return [...document.querySelectorAll('input, button')].filter(one => !one.closest('[inert]'))"
      ".every(one => one.closest('#naming'))");
  EXPECT_TRUE(browser_.Run(reached).toBool());
  OpenPage(browser_);
  EXPECT_EQ(browser_.Run(QStringLiteral("return document.querySelectorAll('[inert]').length")).toInt(), 0);
}

}  // namespace
}  // namespace koru::test
