#include "tests/desktop/floor/page/PageWorld.h"

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
  settings.store = store_;
  settings.counting = counting_;
  settings.limits = limits_;
  return settings;
}

void PageWorld::Serve() {
  server_ = std::make_unique<FloorServer>(*session_, Settings());
  port_ = server_->Port();
}

void PageWorld::ServeWithin(const FloorServerLimits& limits) {
  limits_ = limits;
  server_.reset();
  Serve();
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

void PageWorld::ServeAnotherCounting() {
  server_.reset();
  session_.reset();
  journal_.Remove();
  journal_.aside.clear();
  store_ = "انبار دو";
  counting_ = "00000000000000b2";
  Open();
  Serve();
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
    GiveName(browser, name);
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

void PageWorld::WaitForArrival(Browser& browser, const PageGood& good, const QString& figure) {
  WaitForDesk(good, figure);
  WaitForState(browser, kAllArrived);
}

void PageWorld::InsistOn(Browser& browser, const QString& figure) {
  ClickButton(browser, Text("%1 ثبت شود").arg(figure));
  WaitForArrival(browser, kTea, figure);
  WaitForNotices(browser, 0);
}

void PageWorld::CountArrives(Browser& browser, const PageGood& good, const QString& figure) {
  test::Count(browser, good, figure);
  WaitForArrival(browser, good, figure);
}

void PageWorld::WaitForUnlisted() {
  WaitUntil([&] { return session_->Unknown().size() == 1; }, QStringLiteral("the desk does not know of it"));
  EXPECT_EQ(session_->Unknown().front().barcode, kUnlisted.toStdString());
}

void PageWorld::OpenAnew(Browser& browser, int count) {
  browser.Open(QStringLiteral("about:blank"));
  browser.Open(Url(count));
}

void PageWorld::OpenWithNewCode(Browser& browser, int count) {
  session_->RenewCode(1);
  browser.SetOffline(false);
  OpenAnew(browser, count);
}

QStringList PageWorld::OpenSecondTab(Browser& browser, int count) {
  const QString first = browser.CurrentTab();
  const QString second = browser.OpenTab();
  OpenPage(browser, count);
  return {first, second};
}

void PageWorld::DeleteTea() {
  Lines().UserMoveTo(1, LineColumn::Barcode);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Lines().UserDeleteRow());
}

void PageWorld::DeleteAllLines() {
  Desk().Timer1.Fire();  // the commands are those of what is on the form
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdDeleteAll.UserClick());
  ASSERT_EQ(Lines().Rows(), 1);
}

}  // namespace koru::test
