// The page at the sizes of a phone and of a screen: nothing is cut off, and targets are large enough for a
// thumb. KORU_PAGE_PICTURES names a folder that gets the pictures.

#include <QJsonArray>
#include <cstdlib>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

/// What is outside the window, wider than its box or too small for a thumb. Names in lists are shortened to
/// two lines, with the whole name on the card.
constexpr const char* kFaults = R"(
  const faults = [];
  const name = element => element.tagName + '#' + element.id + '.' + element.className;
  const root = document.documentElement;
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
    const isFixed = element.matches('header *, #tabs *, #search-row *, #card .entry *');
    if (isFixed && box.bottom > innerHeight + 0.5) faults.push(name(element) + ' is below the window');
  }
  return faults;
)";

struct Size {
  int width;
  int height;
};

class PageLooks : public PageWorld, public testing::WithParamInterface<Size> {
 protected:
  PageLooks() : browser_({QSize(GetParam().width, GetParam().height)}) {}

  /// Looks at what the page shows now.
  void Look(const char* what) {
    SCOPED_TRACE(what);
    browser_.Run(QStringLiteral(
        "return new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))"));
    ASSERT_EQ(browser_.Run(QStringLiteral("return innerWidth")).toInt(), GetParam().width);
    const QJsonArray faults = browser_.Run(Text(kFaults)).toArray();
    for (const QJsonValue& fault : faults) ADD_FAILURE() << fault.toString().toStdString();
    const char* const folder = std::getenv("KORU_PAGE_PICTURES");
    if (folder != nullptr)
      browser_.Picture(
          QStringLiteral("%1/%2-%3.png").arg(Text(folder)).arg(GetParam().width).arg(Text(what)));
  }

  Browser browser_;
};

TEST_P(PageLooks, Nothing_is_cut_off_wherever_the_counter_is) {
  browser_.Open(QString::fromStdString(server_->Url(1, "127.0.0.1")).section(QLatin1Char('#'), 0, 0));
  WaitForText(browser_, QStringLiteral("#empty"), Text("کد شمارش ندارد"));
  Look("no-code");
  browser_.Open(QStringLiteral("about:blank"));
  browser_.Open(Url(1));
  browser_.WaitFor(QStringLiteral("!document.getElementById('naming').hidden"));
  Look("name");
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
  WaitForText(browser_, QStringLiteral("#card .notice:not([hidden])"), Text("بارکد"));
  Look("asked-back");
  ClickButton(browser_, Text("بستن"));
  browser_.Keys(QStringLiteral("626999999999400000000000000000000000000000000000000000000000000\n"));
  browser_.WaitFor(QStringLiteral("!document.getElementById('unknown').hidden"));
  Look("unknown");
  test::Count(browser_, kLong, QStringLiteral("-3"));
  WaitForText(browser_, QStringLiteral("#banner"), Text("تعداد"));
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
  WaitForState(browser_, Text("3 در گوشی مانده"));
  Set(1, {kTea.barcode, 1}, "78");
  browser_.Click(QStringLiteral("#state"));
  WaitForText(browser_, QStringLiteral("#queue"), Text("میز پیدا نیست"));
  Look("queue");
  browser_.SetOffline(false);
  WaitForState(browser_, kAllArrived);
  browser_.WaitFor(QStringLiteral("document.getElementById('notices-number').textContent === '1'"));
  browser_.Click(QStringLiteral("[data-tab=notices]"));
  Look("notices");
  browser_.Click(QStringLiteral("#list .row"));
  WaitForText(browser_, QStringLiteral("#card"), QStringLiteral("78"));
  Look("conflict");
  ClickButton(browser_, Text("بستن"));
  Save();
  WaitForState(browser_, Text("میز درنگ کرده"));
  Look("paused");
  test::Count(browser_, kOil, QStringLiteral("9"));
  session_->Stop();
  WaitForState(browser_, Text("این شمارش بسته است"));
  WaitForText(browser_, QStringLiteral("#queue"), Text(kOil.name));
  Look("closed");
}

INSTANTIATE_TEST_SUITE_P(At, PageLooks, testing::Values(Size{360, 640}, Size{1280, 800}),
                         [](const auto& size) { return std::to_string(size.param.width); });

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
  for (const QJsonValue& size : sizes) bytes += size.toDouble();
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
