#include "tests/desktop/floor/page/PageWorld.h"

#include <QJsonArray>
#include <array>

namespace koru::test {
namespace {

constexpr std::array kGoods{kTea, kCheese, kOil, kLamp, kHostile, kTurned, kLong};

std::string Quoted(std::string text) {
  for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 2) text.insert(at, 1, '\'');
  return "'" + text + "'";
}

/// The statements that put a good into the counting as a line.
std::string Insertion(const PageGood& good, int row) {
  return "insert into tblGood (Barcode,Code,Name) values (" + Quoted(good.barcode) + "," + Quoted(good.code) +
         "," + Quoted(good.name) +
         ");"
         "insert into tblInventoryCountingDetail "
         "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue)"
         " values (20," +
         Quoted(good.barcode) + "," + std::to_string(row) + ",1,4444,3);";
}

QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

/// What a script sees as a text.
QString Literal(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("\\'"));
  return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

}  // namespace

PageWorld::PageWorld() {
  std::string goods = "delete from tblInventoryCountingDetail where CountingID=20;";
  for (const PageGood& good : kGoods) goods += Insertion(good, ++rows_);
  database.Execute(goods);
  RestartDesk();
}

void PageWorld::AddGood(const PageGood& good) {
  database.Execute(Insertion(good, ++rows_));
  port_ = 0;  // no page has been opened, and another program may have the port by now
  RestartDesk();
}

void PageWorld::AddGoods(int number) {
  const auto barcode = [](int at) { return "'" + std::to_string(7000000000000 + at) + "'"; };
  database.InsertRows("tblGood (Barcode,Code,Name)", 1, number, [&](int at) {
    return barcode(at) + ",'" + std::to_string(100000 + at) + "','کالای شماره " + std::to_string(at) + "'";
  });
  database.InsertRows(
      "tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue)", 1, number,
      [&](int at) { return "20," + barcode(at) + "," + std::to_string(10 + at) + ",1,4444,3"; });
  port_ = 0;  // no page has been opened, and another program may have the port by now
  RestartDesk();
}

FloorServerSettings PageWorld::Settings() const {
  FloorServerSettings settings;
  settings.port = port_;
  settings.securePort = 0;
  settings.folder = folder_.path().toStdString();
  settings.addresses = {"127.0.0.1"};
  settings.store = "انبار مركزي";
  return settings;
}

void PageWorld::Serve() {
  server_ = std::make_unique<FloorServer>(*session_, Settings());
  port_ = server_->Port();
}

void PageWorld::ServeSecurely() {
  constexpr int kAttempts = 20;  // another program may have the next port
  for (int attempt = 1;; ++attempt) {
    FloorServerSettings settings = Settings();
    settings.port = port_;
    settings.securePort = static_cast<std::uint16_t>(port_ + 1);
    server_.reset();
    try {
      server_ = std::make_unique<FloorServer>(*session_, std::move(settings));
      server_->OpenSecure();
      return;
    } catch (const InputError&) {
      if (attempt == kAttempts) throw;
      server_.reset();
      port_ = 0;
      Serve();
    }
  }
}

void PageWorld::KillDesk() {
  server_.reset();
  Crash();
}

void PageWorld::RestartDesk() {
  KillDesk();
  StartAndOpen();
  Serve();
}

QString PageWorld::Url(int count, bool secure) {
  return QString::fromStdString(server_->Url(count, "127.0.0.1", secure));
}

void PageWorld::OpenPage(Browser& browser, int count, const QString& name) {
  browser.Open(Url(count));
  browser.WaitFor(
      QStringLiteral("!document.getElementById('naming').hidden || document.querySelector('#list .row')"));
  if (browser.Shows(QStringLiteral("#naming"))) {
    browser.Click(QStringLiteral("#name"));
    browser.Keys(name + QLatin1Char('\n'));
  }
  WaitForState(browser, kAllArrived);
  browser.WaitFor(QStringLiteral("document.querySelectorAll('#list .row').length > 0"));
}

QString PageWorld::AtDesk(const PageGood& good, int count) {
  return QString::fromStdString(FloorWorld::Count({good.barcode, 1}, count));
}

void PageWorld::WaitForDesk(const PageGood& good, const QString& figure, int count) {
  WaitUntil([&] { return AtDesk(good, count) == figure; },
            QStringLiteral("the desk has %1 instead of %2").arg(AtDesk(good, count), figure));
}

void Scan(Browser& browser, const PageGood& good) { browser.Keys(Text(good.barcode) + QLatin1Char('\n')); }

void OpenCard(Browser& browser, const PageGood& good) {
  Scan(browser, good);
  browser.WaitFor(QStringLiteral("document.activeElement.id === 'figure'"));
}

void Count(Browser& browser, const PageGood& good, const QString& figure) {
  OpenCard(browser, good);
  browser.Keys(figure + QLatin1Char('\n'));
  browser.WaitFor(QStringLiteral("document.getElementById('card').hidden"));
}

void Add(Browser& browser, const PageGood& good, const QString& figure) {
  OpenCard(browser, good);
  browser.Keys(figure);
  ClickButton(browser, Text("افزودن"));
}

void CountThree(Browser& browser) {
  Count(browser, kTea, QStringLiteral("1"));
  Count(browser, kCheese, QStringLiteral("2"));
  Count(browser, kOil, QStringLiteral("3"));
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

void MakeDeaf(Browser& browser) {
  browser.Run(
      QStringLiteral("const ask = window.fetch; window.sent = []; window.lost = 0; window.isDeaf = true;"
                     "window.fetch = async (path, options) => {"
                     "  if (path === 'a/figures') window.sent.push(options.body);"
                     "  const answer = await ask(path, options);"
                     "  if (path !== 'a/figures' || !window.isDeaf) return answer;"
                     "  window.lost += 1; throw new TypeError('the answer is lost'); }"));
}

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
