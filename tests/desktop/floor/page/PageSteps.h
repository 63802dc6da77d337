#pragma once

#include <QString>

#include "tests/browser/Browser.h"

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

/// A barcode that no line has.
inline const QString kUnlisted = QStringLiteral("6269999999994");

/// What the page says once the desk has all figures.
inline const QString kAllArrived = QStringLiteral("همه رسیده");

inline QString Text(const char* utf8) { return QString::fromUtf8(utf8); }

/// Scans a barcode: keys wherever the focus is, then Enter.
void Scan(Browser& browser, const PageGood& good);
/// Scans, types a figure into the card and presses Enter, which closes the card.
void Count(Browser& browser, const PageGood& good, const QString& figure);
/// Scans a barcode that no line has, and waits until the page says so.
void ScanUnknown(Browser& browser, const QString& barcode);
/// Scans and waits until the card of the good takes a figure.
void OpenCard(Browser& browser, const PageGood& good);
/// Scans, types a figure into the card and adds it.
void Add(Browser& browser, const PageGood& good, const QString& figure);
/// Adds a figure that reaches the desk; the loaded page does not hear its answer, nor any other before
/// HearAgain.
void AddUnheard(Browser& browser, const PageGood& good, const QString& figure);
/// Cuts the device off and counts a good: its figure is left on the device.
void CountOffline(Browser& browser, const PageGood& good, const QString& figure);
/// Cuts the device off: figures 1 of the tea, 2 of the cheese and 3 of the oil are left on it.
void CountThreeOffline(Browser& browser);
/// Connects the device again, and waits until the desk has answered all its figures, and the page has a
/// number of messages to be read.
void ConnectAgain(Browser& browser, int notices);
/// Waits until the button that says how it is with the figures has a text.
void WaitForState(Browser& browser, const QString& text);
void WaitForText(Browser& browser, const QString& selector, const QString& part);
/// Waits until a number of figures are left on the device while the desk cannot be reached or refuses them.
void WaitForLeft(Browser& browser, int number);
/// Waits until the page has a number of messages of the desk to be read.
void WaitForNotices(Browser& browser, int number);
/// Opens the list of these messages.
void OpenNotices(Browser& browser, int number);
/// Reads on the card that the line of a figure is deleted.
void ReadDeleted(Browser& browser, const QString& figure);
/// Waits for a part of what the page says above the list.
void WaitForBanner(Browser& browser, const QString& part);
/// Waits until the card of a good is open.
void WaitForCard(Browser& browser, const PageGood& good);
/// Waits for a part of what the card asks or says of the figure.
void WaitForAsked(Browser& browser, const QString& part);
/// Waits until the element of an id can be seen, or cannot.
void WaitForShown(Browser& browser, const char* id);
void WaitUntilHidden(Browser& browser, const char* id);
/// Opens the list of figures on the device and waits for a part of it.
void OpenQueue(Browser& browser, const QString& part);
/// Gives the device a name when the page asks for it.
void GiveName(Browser& browser, const QString& name);
/// Clicks the visible button that has a text.
void ClickButton(Browser& browser, const QString& text);
/// Whether a visible button has a text.
[[nodiscard]] bool ShowsButton(Browser& browser, const QString& text);
/// Keeps the current tab from loading what matches the patterns, instead of what it was kept from before.
void Block(Browser& browser, const QJsonArray& patterns);
/// From now on, all that the page wants of the storage of its loaded page fails; and no longer.
void BreakStorage(Browser& browser);
void MendStorage(Browser& browser);
/// Runs a script in every page that the current tab loads from now on, before the page's own.
void RunBeforePages(Browser& browser, const QString& script);
/// The user of the device erases what the browser keeps for the address of the loaded page.
void EraseData(Browser& browser);
/// From now on the loaded page notes in window.sent which figures it sends, and while window.isDeaf is true
/// it hears no answers to them: window.lost is their number.
void MakeDeaf(Browser& browser);
void HearAgain(Browser& browser);
/// The figure that the list shows for a good; empty where the list does not show it.
[[nodiscard]] QString ShownFigure(Browser& browser, const PageGood& good);

}  // namespace koru::test
