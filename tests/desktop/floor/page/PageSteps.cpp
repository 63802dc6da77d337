#include "tests/desktop/floor/page/PageSteps.h"

#include <QJsonArray>

namespace koru::test {
namespace {

/// What a script sees as a text.
QString Literal(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
  return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

}  // namespace

void Scan(Browser& browser, const PageGood& good) { browser.Keys(Text(good.barcode) + QLatin1Char('\n')); }

void ScanUnknown(Browser& browser, const QString& barcode) {
  browser.Keys(barcode + QLatin1Char('\n'));
  WaitForShown(browser, "unknown");
}

void OpenCard(Browser& browser, const PageGood& good) {
  Scan(browser, good);
  WaitForCard(browser, good);
  browser.WaitFor(QStringLiteral("document.activeElement.id === 'figure'"));
}

void Count(Browser& browser, const PageGood& good, const QString& figure) {
  OpenCard(browser, good);
  browser.Keys(figure + QLatin1Char('\n'));
  WaitUntilHidden(browser, "card");
}

void Add(Browser& browser, const PageGood& good, const QString& figure) {
  OpenCard(browser, good);
  browser.Keys(figure);
  ClickButton(browser, Text("افزودن"));
}

void AddUnheard(Browser& browser, const PageGood& good, const QString& figure) {
  MakeDeaf(browser);
  Add(browser, good, figure);
  browser.WaitFor(QStringLiteral("window.lost > 0"), QStringLiteral("an answer that is not heard"));
}

void CountOffline(Browser& browser, const PageGood& good, const QString& figure) {
  browser.SetOffline(true);
  Count(browser, good, figure);
  WaitForLeft(browser, 1);
}

void CountThreeOffline(Browser& browser) {
  CountOffline(browser, kTea, QStringLiteral("1"));
  Count(browser, kCheese, QStringLiteral("2"));
  Count(browser, kOil, QStringLiteral("3"));
  WaitForLeft(browser, 3);
}

void ConnectAgain(Browser& browser, int notices) {
  browser.SetOffline(false);
  WaitForState(browser, kAllArrived);
  WaitForNotices(browser, notices);
}

void WaitForState(Browser& browser, const QString& text) {
  browser.WaitFor(QStringLiteral("document.getElementById('state').textContent === ") + Literal(text), text);
}

void WaitForText(Browser& browser, const QString& selector, const QString& part) {
  // Marks that isolate directions are no part of what is read.
  browser.WaitFor(QStringLiteral("(document.querySelector(%1)?.textContent ?? '')"
                                 ".replace(/[\\u2066-\\u2069]/g, '').includes(%2)")
                      .arg(Literal(selector), Literal(part)),
                  part);
}

void WaitForLeft(Browser& browser, int number) {
  WaitForState(browser, Text("%1 در گوشی مانده").arg(number));
}

void WaitForNotices(Browser& browser, int number) {
  const QString shown = number == 0 ? QString() : QString::number(number);
  browser.WaitFor(
      QStringLiteral("document.getElementById('notices-number').textContent === ") + Literal(shown),
      QStringLiteral("the number of messages"));
}

void OpenNotices(Browser& browser, int number) {
  browser.Click(QStringLiteral("[data-tab=notices]"));
  browser.WaitFor(
      QStringLiteral("document.querySelectorAll('#list .row:not([hidden])').length === %1").arg(number),
      QStringLiteral("the messages"));
}

void ReadDeleted(Browser& browser, const QString& figure) {
  WaitForText(browser, QStringLiteral("#card"), Text("سطر این کالا دیگر در شمارش نیست"));
  WaitForText(browser, QStringLiteral("#card"), Text("رقم شما: ") + figure);
  ClickButton(browser, Text("باشد"));
}

void WaitForBanner(Browser& browser, const QString& part) {
  WaitForText(browser, QStringLiteral("#banner"), part);
}

void WaitForCard(Browser& browser, const PageGood& good) {
  WaitForText(browser, QStringLiteral("#card h2"), Text(good.name));
}

void WaitForAsked(Browser& browser, const QString& part) {
  WaitForText(browser, QStringLiteral("#card .notice:not([hidden])"), part);
}

void WaitForShown(Browser& browser, const char* id) {
  browser.WaitFor(QStringLiteral("!document.getElementById('%1').hidden").arg(Text(id)));
}

void WaitUntilHidden(Browser& browser, const char* id) {
  browser.WaitFor(QStringLiteral("document.getElementById('%1').hidden").arg(Text(id)));
}

void OpenQueue(Browser& browser, const QString& part) {
  browser.Click(QStringLiteral("#state"));
  WaitForText(browser, QStringLiteral("#queue:not([hidden])"), part);
}

void GiveName(Browser& browser, const QString& name) {
  browser.Click(QStringLiteral("#name"));
  browser.Keys(name + QLatin1Char('\n'));
}

void ClickButton(Browser& browser, const QString& text) {
  browser.WaitFor(
      QStringLiteral("[...document.querySelectorAll('button')].some(button => button.offsetParent && "
                     "button.textContent.replace(/[\\u2066-\\u2069]/g, '') === %1)")
          .arg(Literal(text)),
      text);
  browser.Run(
      QStringLiteral("[...document.querySelectorAll('button')].find(button => button.offsetParent && "
                     "button.textContent.replace(/[\\u2066-\\u2069]/g, '') === arguments[0]).click()"),
      {text});
}

bool ShowsButton(Browser& browser, const QString& text) {
  return browser
      .Run(QStringLiteral("return [...document.querySelectorAll('button')].some(button => "
                          "button.offsetParent && button.textContent === arguments[0])"),
           {text})
      .toBool();
}

void Block(Browser& browser, const QJsonArray& patterns) {
  browser.Command(QStringLiteral("Network.enable"));
  browser.Command(QStringLiteral("Network.setBlockedURLs"), {{"urls", patterns}});
}

void BreakStorage(Browser& browser) {
  browser.Run(QStringLiteral(
      "window.begin = IDBDatabase.prototype.transaction;"
      "IDBDatabase.prototype.transaction = () => { throw new DOMException('', 'UnknownError'); }"));
}

void MendStorage(Browser& browser) {
  browser.Run(QStringLiteral("IDBDatabase.prototype.transaction = window.begin"));
}

void RunBeforePages(Browser& browser, const QString& script) {
  browser.Command(QStringLiteral("Page.addScriptToEvaluateOnNewDocument"), {{"source", script}});
}

void EraseData(Browser& browser) {
  browser.Command(QStringLiteral("Storage.clearDataForOrigin"),
                  {{"origin", browser.Run(QStringLiteral("return location.origin"))},
                   {"storageTypes", "indexeddb,local_storage"}});
}

void MakeDeaf(Browser& browser) {
  browser.Run(
      QStringLiteral("const ask = window.fetch; window.sent = []; window.lost = 0; window.isDeaf = true;"
                     "window.fetch = async (path, options) => {"
                     "  if (path === 'a/figures') window.sent.push(options.body);"
                     "  const answer = await ask(path, options);"
                     "  if (path !== 'a/figures' || !window.isDeaf) return answer;"
                     "  window.lost += 1; throw new TypeError('the answer is lost'); }"));
}

void HearAgain(Browser& browser) { browser.Run(QStringLiteral("window.isDeaf = false")); }

QString ShownFigure(Browser& browser, const PageGood& good) {
  // The list is drawn with the next frame.
  return browser
      .Run(QStringLiteral(
               "return new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))"
               ".then(() => [...document.querySelectorAll('#list .row')].find(row => !row.hidden && "
               "row.querySelector('.name').textContent === arguments[0])"
               "?.querySelector('.number').textContent ?? '')"),
           {Text(good.name)})
      .toString();
}

}  // namespace koru::test
