#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "desktop/floor/server/FloorServer.h"
#include "tests/browser/Browser.h"
#include "tests/floor/FloorWorld.h"

namespace koru::test {

/// A good of the counting that PageWorld opens.
struct PageGood {
  const char* barcode;
  const char* code;
  const char* name;
};

inline constexpr PageGood kTea{"6260100000017", "101", "چای ممتاز"};
inline constexpr PageGood kCheese{"6260100000024", "102", "پنیر سفید کم‌نمک"};
inline constexpr PageGood kOil{"6260100000031", "103", "روغن مايع كنجد"};
inline constexpr PageGood kLamp{"LED-60-W", "104", "لامپ"};
inline constexpr PageGood kHostile{"6260100000048", "105", "<img src=x onerror=\"document.title='run'\">"};
inline constexpr PageGood kTurned{"6260100000055", "106", "\u202Eشکر سفید\u202D 12"};
inline constexpr PageGood kLong{"6260100000062", "107",
                                "بیسکویت کرم‌دار با طعم پرتقال "
                                "در بستهٔ بسیار بزرگ خانوادگی "
                                "که نامش در دو سطر جا نمی‌شود "
                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ-0123456789-"
                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ"};

/// The page of the floor in a real browser. Counting 20 is being edited at the desk and served in this
/// process: the goods above, one line each, nothing counted.
class PageWorld : public FloorWorld {
 protected:
  PageWorld();

  /// Puts a further good into the counting.
  void AddGood(const PageGood& good);
  /// Puts a number of further goods into the counting, with barcodes that count from 7000000000001.
  void AddGoods(int number);
  /// Begins to serve; the desk keeps its port when it begins again.
  void Serve();
  /// Serves https too, on the port after that of http, as the desk does by default.
  void ServeSecurely();
  /// The program ends without warning and begins again.
  void KillDesk();
  void RestartDesk();

  [[nodiscard]] QString Url(int count, bool secure = false);
  /// Opens the page of a count on a device that has given its name, and waits until it shows the lines.
  void OpenPage(Browser& browser, int count = 1, const QString& name = QStringLiteral("رضا"));
  /// What the desk has of a good in a count.
  [[nodiscard]] QString AtDesk(const PageGood& good, int count = 1);
  void WaitForDesk(const PageGood& good, const QString& figure, int count = 1);

  /// What the server is served with.
  [[nodiscard]] FloorServerSettings Settings() const;

  QTemporaryDir folder_;
  std::uint16_t port_ = 0;
  int rows_ = 0;
  std::unique_ptr<FloorServer> server_;
};

/// Scans a barcode: keys wherever the focus is, then Enter.
void Scan(Browser& browser, const PageGood& good);
/// Scans, types a figure into the card and presses Enter, which closes the card.
void Count(Browser& browser, const PageGood& good, const QString& figure);
/// Scans and waits until the card takes a figure.
void OpenCard(Browser& browser, const PageGood& good);
/// Scans, types a figure into the card and adds it.
void Add(Browser& browser, const PageGood& good, const QString& figure);
/// Figures 1 of the tea, 2 of the cheese and 3 of the oil.
void CountThree(Browser& browser);
/// Waits until the button that says how it is with the figures has a text.
void WaitForState(Browser& browser, const QString& text);
void WaitForText(Browser& browser, const QString& selector, const QString& part);
/// Clicks the visible button that has a text.
void ClickButton(Browser& browser, const QString& text);
/// Whether a visible button has a text.
[[nodiscard]] bool ShowsButton(Browser& browser, const QString& text);
/// Keeps the current tab from loading what matches the patterns, instead of what it was kept from before.
void Block(Browser& browser, const QJsonArray& patterns);
/// From now on, all that the page wants of the storage of its loaded page fails; and no longer.
void BreakStorage(Browser& browser);
void MendStorage(Browser& browser);
/// From now on the loaded page notes in window.sent which figures it sends, and while window.isDeaf is true
/// it hears no answers to them: window.lost is their number.
void MakeDeaf(Browser& browser);
/// The figure that the list shows for a good; empty where the list does not show it.
[[nodiscard]] QString ShownFigure(Browser& browser, const PageGood& good);

inline const QString kAllArrived = QStringLiteral("همه رسیده");

}  // namespace koru::test
