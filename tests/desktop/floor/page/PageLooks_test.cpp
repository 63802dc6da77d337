// The page at the sizes of a phone and of a screen, light and dark: nothing is cut off, targets are large
// enough for a thumb, and texts differ enough from what is below them. KORU_PAGE_PICTURES names a folder that
// gets the pictures.

#include <QJsonArray>
#include <cstdlib>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

/// What is outside the window, wider than its box, too small for a thumb or hard to read (a contrast of less
/// than 4.5). Names in lists are shortened to two lines, with the whole name on the card.
constexpr const char* kFaults = R"(
  const faults = [];
  const name = element => element.tagName + '#' + element.id + '.' + element.className;
  const root = document.documentElement;
  const colour = text => text.match(/[\d.]+/g).map(Number);
  const luminance = text => {
    const [red, green, blue] = colour(text).slice(0, 3).map(part => part / 255)
        .map(part => part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  };
  const isOpaque = element => (colour(getComputedStyle(element).backgroundColor)[3] ?? 1) > 0;
  const contrast = (element, part) => {
    let below = element;
    while (below !== root && !isOpaque(below)) below = below.parentElement;
    const [weaker, stronger] = [luminance(getComputedStyle(element, part).color),
                                luminance(getComputedStyle(below).backgroundColor)].sort((a, b) => a - b);
    return (stronger + 0.05) / (weaker + 0.05);
  };
  if (root.scrollWidth > innerWidth || root.scrollHeight > innerHeight) faults.push('the page scrolls');
  for (const element of document.querySelectorAll('body *')) {
    const box = element.getBoundingClientRect();
    if (box.width === 0 || box.height === 0 || element.matches('.space')) continue;
    if (box.left < -0.5 || box.right > innerWidth + 0.5) faults.push(name(element) + ' is outside');
    const isShortened = element.matches('.row .name, .row .below');
    const isBlock = element.clientWidth > 0;
    if (isBlock && !isShortened && element.scrollWidth > element.clientWidth + 1) faults.push(name(element) + ' is wider than its box');
    const scrolls = /auto|scroll/.test(getComputedStyle(element).overflowY);
    if (isBlock && !isShortened && !scrolls && element.scrollHeight > element.clientHeight + 2) faults.push(name(element) + ' is higher than its box');
    if (element.matches('button, input') && (box.height < 44 || box.width < 44)) faults.push(name(element) + ' is small');
    const hasText = [...element.childNodes].some(node => node.nodeType === Node.TEXT_NODE && node.data.trim() !== '');
    if ((hasText || element.matches('input')) && contrast(element) < 4.5) {
      faults.push(name(element) + ' is hard to read: ' + contrast(element).toFixed(1));
    }
    if (element.placeholder && contrast(element, '::placeholder') < 4.5) faults.push(name(element) + ' has a weak placeholder');
    const isFixed = element.matches('header *, #tabs *, #search-row *, #card .entry *');
    if (isFixed && box.bottom > innerHeight + 0.5) faults.push(name(element) + ' is below the window');
  }
  return faults;
)";

struct Display {
  int width;
  int height;
  const char* scheme;  ///< of the device's colours
};

std::string NameOf(const Display& screen) { return std::to_string(screen.width) + "_" + screen.scheme; }

class PageLooks : public PageWorld, public testing::WithParamInterface<Display> {
 protected:
  PageLooks()
      : browser_(
            {.window = QSize(GetParam().width, GetParam().height), .acceptsInsecureCertificates = true}) {
    const QJsonObject scheme{{"name", "prefers-color-scheme"}, {"value", GetParam().scheme}};
    browser_.Command(QStringLiteral("Emulation.setEmulatedMedia"), {{"features", QJsonArray{scheme}}});
  }

  /// Looks at what the page shows now.
  void Look(const char* what) {
    SCOPED_TRACE(what);
    browser_.Run(QStringLiteral(
        "return new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))"));
    ASSERT_EQ(browser_.Run(QStringLiteral("return innerWidth")).toInt(), GetParam().width);
    ASSERT_TRUE(browser_
                    .Run(QStringLiteral("return matchMedia('(prefers-color-scheme: %1)').matches")
                             .arg(Text(GetParam().scheme)))
                    .toBool());
    const QJsonArray faults = browser_.Run(Text(kFaults)).toArray();
    for (const auto& fault : faults) ADD_FAILURE() << fault.toString().toStdString();
    const char* const folder = std::getenv("KORU_PAGE_PICTURES");
    if (folder != nullptr)
      browser_.Picture(
          QStringLiteral("%1/%2-%3.png").arg(Text(folder), Text(NameOf(GetParam()).c_str()), Text(what)));
  }
  Browser browser_;
};

TEST_P(PageLooks, Nothing_is_cut_off_wherever_the_counter_is) {
  browser_.Open(QString::fromStdString(server_->Url(1, "127.0.0.1")).section(QLatin1Char('#'), 0, 0));
  WaitForText(browser_, QStringLiteral("#empty"), Text("کد شمارش ندارد"));
  Look("no-code");
  FloorServerLimits limits;
  limits.devices = 0;
  ServeWithin(limits);
  OpenAnew(browser_, 1);
  WaitForShown(browser_, "naming");
  Look("name");
  GiveName(browser_, Text("رضا"));
  WaitForText(browser_, QStringLiteral("#refusal"),
              Text("شمار دستگاه‌هاي اين شمارش كامل است."));
  Look("device-too-many");
  ServeWithin({});
  OpenPage(browser_);
  Look("list");
  browser_.Click(QStringLiteral("[data-tab=done]"));
  WaitForText(browser_, QStringLiteral("#empty"), Text("هنوز کالایی شمرده نشده است"));
  Look("nothing-counted");
  for (const PageGood& good : {kTea, kHostile, kTurned, kLong}) {
    Scan(browser_, good);
    WaitForText(browser_, QStringLiteral("#card dl"), Text(good.barcode));
    Look((std::string("card-") + good.code).c_str());
    ClickButton(browser_, Text("بستن"));
  }
  Scan(browser_, kLong);
  Scan(browser_, kTea);
  WaitForAsked(browser_, Text("بارکد"));
  Look("asked-back");
  ClickButton(browser_, Text("بستن"));
  ScanUnknown(browser_, QStringLiteral("626999999999400000000000000000000000000000000000000000000000000"));
  Look("unknown");
  test::Count(browser_, kLong, QStringLiteral("-3"));
  WaitForBanner(browser_, Text("تعداد"));
  Look("refused");
  Scan(browser_, kLong);
  Look("refused-card");
  ClickButton(browser_, Text("خواندم"));
  browser_.Keys(Text("چا"));
  WaitForText(browser_, QStringLiteral("#progress-text"), Text("1 کالا"));
  Look("search");
  browser_.Click(QStringLiteral("#clear"));
  browser_.SetOffline(true);
  test::Count(browser_, kTea, QStringLiteral("70"));
  test::Count(browser_, kTurned, QStringLiteral("71.25"));
  Scan(browser_, kLong);
  browser_.Keys(QStringLiteral("12345678\n"));
  ClickButton(browser_, Text("مقدار است"));
  WaitForLeft(browser_, 3);
  Set(1, {kTea.barcode, 1}, "78");
  OpenQueue(browser_, Text("میز پیدا نیست"));
  Look("queue");
  ConnectAgain(browser_, 1);
  OpenNotices(browser_, 1);
  Look("notices");
  browser_.Click(QStringLiteral("#list .row"));
  WaitForText(browser_, QStringLiteral("#card"), QStringLiteral("78"));
  Look("conflict");
  ClickButton(browser_, Text("بستن"));
  journal_.isFull = true;
  test::Count(browser_, kCheese, QStringLiteral("5"));
  WaitForText(browser_, QStringLiteral("#refusal"), Text("میز می‌گوید"));
  Look("desk-refuses");
  OpenQueue(browser_, Text("میز اکنون رقمی نمی‌پذیرد"));
  Look("desk-refuses-queue");
  journal_.isFull = false;
  WaitForState(browser_, kAllArrived);
  Save();
  WaitForState(browser_, Text("میز درنگ کرده"));
  Look("paused");
  test::Count(browser_, kOil, QStringLiteral("9"));
  WaitForState(browser_, Text("میز درنگ کرده؛ 1 در گوشی مانده"));
  session_->Stop();
  WaitForState(browser_, Text("این شمارش بسته است"));
  WaitForText(browser_, QStringLiteral("#queue"), Text(kOil.name));
  Look("closed");
}

TEST_P(PageLooks, Nothing_is_cut_off_whatever_fails) {
  ServeSecurely();
  browser_.Open(Url(1, true));
  GiveName(browser_, Text("رضا"));
  WaitForShown(browser_, "arrived");
  Look("change-from-http");
  ClickButton(browser_, Text("نشمرده‌ام یا همه رسیده است"));
  WaitForState(browser_, kAllArrived);
  BreakStorage(browser_);
  OpenCard(browser_, kLong);
  browser_.Keys(QStringLiteral("12.5\n"));
  WaitForText(browser_, QStringLiteral("#card"), Text("ثبت نشد، چون گوشی آن را نگه نداشت"));
  Look("not-kept");
  MendStorage(browser_);
  browser_.Click(QStringLiteral("#search"));
  Scan(browser_, kCheese);
  BreakStorage(browser_);
  ClickButton(browser_, Text("ثبت شود"));
  WaitForBanner(browser_, Text("ثبت نشد، چون گوشی آن را نگه نداشت"));
  Look("not-kept-after-going-on");
  MendStorage(browser_);
  ClickButton(browser_, Text("بستن"));
  browser_.SetOffline(true);
  test::Count(browser_, kTea, QStringLiteral("70"));
  test::Count(browser_, kCheese, QStringLiteral("71"));
  ScanUnknown(browser_, kUnlisted);
  WaitForLeft(browser_, 3);
  browser_.Click(QStringLiteral("#banner"));
  EraseData(browser_);
  WaitForBanner(browser_, Text("داده‌های این صفحه از مرورگر پاک شد"));
  Look("erased");
  browser_.Click(QStringLiteral("#banner"));
  DeleteAllLines();
  OpenCard(browser_, kLong);
  browser_.Keys(QStringLiteral("5"));
  browser_.SetOffline(false);
  WaitForText(browser_, QStringLiteral("#card"), Text("سطر این کالا دیگر در شمارش نیست"));
  WaitForNotices(browser_, 2);
  Look("all-lines-deleted-card");
  ClickButton(browser_, Text("باشد"));
  Look("all-lines-deleted");
  OpenNotices(browser_, 2);
  Look("all-lines-deleted-notices");
  browser_.Click(QStringLiteral("#list .row"));
  WaitForText(browser_, QStringLiteral("#card"), Text("رقم شما"));
  BreakStorage(browser_);
  ClickButton(browser_, Text("باشد"));
  WaitForBanner(browser_, Text("گوشی این تغییر را نگه نداشت"));
  Look("change-not-kept");
}

TEST_P(PageLooks, Nothing_is_cut_off_of_what_is_left_of_an_earlier_code) {
  OpenPage(browser_);
  browser_.SetOffline(true);
  test::Count(browser_, kTea, QStringLiteral("70"));
  test::Add(browser_, kLong, QStringLiteral("12.5"));
  ScanUnknown(browser_, kUnlisted);
  WaitForLeft(browser_, 3);
  OpenQueue(browser_, Text("2 رقم و 1 بارکد"));
  Look("left-with-barcode");
  session_->RenewCode(1);
  browser_.SetOffline(false);
  WaitForText(browser_, QStringLiteral("#queue"), Text("این 2 رقم و 1 بارکد به میز نرسیده است"));
  Look("closed-with-barcode");
  OpenAnew(browser_, 2);
  WaitForState(browser_, Text("2 رقم و 1 بارکد با کد پیشین، فرستاده نشده"));
  Look("earlier-code");
  Save();
  WaitForState(browser_, Text("میز درنگ کرده؛ 2 رقم و 1 بارکد با کد پیشین"));
  Look("earlier-code-paused");
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  OpenQueue(browser_, Text("2 رقم و 1 بارکد از شمارش دیگری است"));
  Look("other-count-queue");
  OpenAnew(browser_, 1);
  WaitForState(browser_, Text("2 رقم با کد پیشین، فرستاده نشده"));
  OpenQueue(browser_, Text("2 رقم با کد پیشین همین شمارش است"));
  browser_.SetOffline(true);
  test::Count(browser_, kCheese, QStringLiteral("6"));
  OpenQueue(browser_, Text("1 رقم دیگر در گوشی می‌ماند"));
  Look("earlier-code-queue");
  ClickButton(browser_, Text("پاک کردن از گوشی"));
  Look("earlier-code-erase");
}

TEST_P(PageLooks, Nothing_is_cut_off_in_several_messages_and_those_of_an_earlier_code) {
  OpenPage(browser_);
  browser_.SetOffline(true);
  test::Count(browser_, kTea, QStringLiteral("70"));
  test::Count(browser_, kLong, QStringLiteral("-3"));
  WaitForLeft(browser_, 2);
  Set(1, {kTea.barcode, 1}, "78");
  browser_.SetOffline(false);
  WaitForNotices(browser_, 2);
  test::Add(browser_, kTea, QStringLiteral("-100"));
  WaitForNotices(browser_, 3);
  Look("two-notices");
  Scan(browser_, kTea);
  WaitForText(browser_, QStringLiteral("#card"), Text("رقم شما ثبت نشد: -100"));
  Look("two-notices-card");
  session_->RenewCode(1);
  OpenAnew(browser_, 1);
  WaitForNotices(browser_, 3);
  OpenNotices(browser_, 3);
  Look("notices-of-earlier-code");
  browser_.Run(QStringLiteral("document.querySelectorAll('#list .row')[2].click()"));
  WaitForText(browser_, QStringLiteral("#card"), Text("با کد پیشین"));
  Look("notice-of-earlier-code-card");
}

INSTANTIATE_TEST_SUITE_P(At, PageLooks,
                         testing::Values(Display{360, 640, "light"}, Display{360, 640, "dark"},
                                         Display{1280, 800, "light"}, Display{1280, 800, "dark"}),
                         [](const auto& screen) { return NameOf(screen.param); });

class FullPage : public PageWorld {};

TEST_F(FullPage, A_phone_loads_less_than_60_kB_before_it_uses_the_camera) {
  Browser browser;
  OpenPage(browser);
  const QJsonArray sizes =
      browser
          .Run(QStringLiteral(
              "return [...performance.getEntriesByType('resource'),"
              " ...performance.getEntriesByType('navigation')]"
              ".filter(({name}) => !name.includes('/a/')).map(entry => entry.encodedBodySize)"))
          .toArray();
  double bytes = 0;
  for (const auto& size : sizes) bytes += size.toDouble();
  EXPECT_GT(bytes, 10'000) << "what is measured";
  EXPECT_LT(bytes, 60'000);
  RecordProperty("bytes", static_cast<int>(bytes));
}

TEST_F(FullPage, A_counting_of_32767_lines_is_listed_and_searched_with_few_elements) {
  constexpr int kAdded = 32767 - 7;
  AddGoods(kAdded);
  Browser browser;
  OpenPage(browser);
  WaitForText(browser, QStringLiteral("#progress-text"), Text("0 از 32767"));
  browser.Keys(Text("شماره %1").arg(kAdded));
  WaitForText(browser, QStringLiteral("#progress-text"), Text("1 کالا"));
  WaitForText(browser, QStringLiteral("#list"), QStringLiteral("7000000032760"));
  browser.Click(QStringLiteral("#clear"));
  browser.Run(QStringLiteral("document.getElementById('list').scrollTop = 1e9"));
  WaitForText(browser, QStringLiteral("#list"), QStringLiteral("7000000032760"));
  EXPECT_LT(browser.Run(QStringLiteral("return document.querySelectorAll('#list .row').length")).toInt(), 40);
  browser.Keys(QStringLiteral("7000000020000\n"));
  WaitForText(browser, QStringLiteral("#card h2"), Text("کالای شماره 20000"));
  browser.Keys(QStringLiteral("8\n"));
  WaitUntil(
      [&] {
        return test::FloorWorld::Count({"7000000020000", 1}, 1) == "8";
      },
      QStringLiteral("the figure"));
}

}  // namespace
}  // namespace koru::test
