// What a counter hears and feels without looking, and what the page asks of the browser.

#include <QJsonArray>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

/// Notes tones, vibrations and requests for lasting storage.
constexpr const char* kSpy = R"(
  window.felt = [];
  window.heard = [];
  window.persists = 0;
  navigator.vibrate = (pattern) => { window.felt.push(pattern); return true; };
  const start = OscillatorNode.prototype.start;
  OscillatorNode.prototype.start = function (...when) {
    window.heard.push(this.frequency.value);
    return start.apply(this, when);
  };
  StorageManager.prototype.persist = async () => { window.persists += 1; return true; };
)";

class PageSignals : public PageWorld {
 protected:
  PageSignals() {
    RunBeforePages(browser_, Text(kSpy));
    OpenPage(browser_);
  }

  /// Whether the page gives one low tone and one long vibration, and nothing else.
  [[nodiscard]] bool HasAlarmed() {
    return browser_
        .Run(QStringLiteral(
            "return window.heard.length === 1 && window.heard[0] < 300 && "
            "window.felt.length === 1 && [].concat(window.felt[0]).reduce((a, b) => a + b) >= 400"))
        .toBool();
  }
  void ForgetSignals() { browser_.Run(QStringLiteral("window.heard = []; window.felt = []")); }

  Browser browser_;
};

TEST_F(PageSignals, A_barcode_that_no_line_has_sounds_low_and_vibrates_long) {
  ScanUnknown(browser_, kUnlisted);
  EXPECT_TRUE(HasAlarmed());
}

TEST_F(PageSignals, A_figure_that_is_kept_sounds_high_and_one_that_is_refused_sounds_low_and_vibrates_long) {
  test::Count(browser_, kTea, QStringLiteral("-3"));
  browser_.WaitFor(QStringLiteral("window.heard.length > 0"));
  EXPECT_TRUE(browser_.Run(QStringLiteral("return window.heard[0] > 600 && window.felt[0] < 100")).toBool())
      << "it is kept in the device";
  WaitForBanner(browser_, QStringLiteral("تعداد كمتر از اندازة مجاز است."));
  browser_.Run(QStringLiteral("window.heard.shift(); window.felt.shift()"));
  EXPECT_TRUE(HasAlarmed());
}

TEST_F(PageSignals, A_figure_of_another_device_that_came_before_sounds_low_and_vibrates_long) {
  Browser other;
  OpenPage(other);
  browser_.SetOffline(true);
  test::Count(browser_, kTea, QStringLiteral("70"));
  browser_.WaitFor(QStringLiteral("window.heard.length > 0"));
  CountArrives(other, kTea, QStringLiteral("78"));
  ForgetSignals();
  browser_.SetOffline(false);
  WaitForBanner(browser_, QStringLiteral("در این میان رقم دیگری ثبت شده است."));
  EXPECT_TRUE(HasAlarmed());
}

TEST_F(PageSignals, The_browser_is_asked_once_to_keep_the_figures_lastingly) {
  CountArrives(browser_, kTea, QStringLiteral("1"));
  EXPECT_EQ(browser_.Run(QStringLiteral("return window.persists")).toInt(), 1);
}

}  // namespace
}  // namespace koru::test
