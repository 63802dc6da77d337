#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "tests/browser/Wait.h"
#include "tests/browser/WebDriver.h"

namespace koru::test {

struct BrowserSettings {
  QSize window = QSize(360, 640);            ///< of the page, in CSS pixels
  bool touch = false;                        ///< a touch screen, and a page laid out as on a phone
  QStringList arguments = {};                ///< additional arguments of the browser
  bool acceptsInsecureCertificates = false;  ///< otherwise such a page shows the browser's warning
  QString profile = {};  ///< folder of cookies, storage and cache; empty: one of its own, removed at the end
};

/// Keys that are no letters, as WebDriver numbers them.
enum class BrowserKey : char16_t {
  Backspace = 0xE003,
  Tab = 0xE004,
  Enter = 0xE007,
  Escape = 0xE00C,
  PageUp = 0xE00E,
  PageDown = 0xE00F,
  End = 0xE010,
  Home = 0xE011,
  Left = 0xE012,
  Up = 0xE013,
  Right = 0xE014,
  Down = 0xE015,
  Delete = 0xE017,
};

/// A real browser without a window (Chromium, headless), driven by W3C WebDriver. Every call runs the event
/// loop of this process until the browser has done it, so the tested server can be in this process. Every
/// failure throws BrowserError. The browser ends with this object.
///
/// A restarted browser is a second one with the same `profile`, made after the first has been destroyed.
class Browser {
 public:
  explicit Browser(BrowserSettings settings = {});
  ~Browser();
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;

  /// Opens a page in the current tab and waits until it is loaded. Throws when there is no page.
  void Open(const QString& url);
  void Reload();
  void Back();
  [[nodiscard]] QString Url();
  [[nodiscard]] QString Title();

  /// Runs the body of a JavaScript function, of which `arguments` are `args`; returns what it returns, or
  /// what a returned promise resolves to. Throws the message of what it throws.
  QJsonValue Run(const QString& script, const QJsonArray& args = {});
  /// Runs the event loop until a JavaScript expression is true, in whichever page is loaded then. When it is
  /// not in time, throws with `what`, the text of the page and what it wrote to the console.
  void WaitFor(const QString& condition, const QString& what = {},
               std::chrono::milliseconds limit = kWaitLimit);

  /// Presses and releases the keys of a text, wherever the keyboard focus of the page is; a line feed is
  /// Enter.
  void Keys(const QString& text);
  void Press(BrowserKey key);
  /// Waits until an element is visible, scrolls it into view and clicks its middle. Throws when another
  /// element is above it there.
  void Click(const QString& selector);
  /// Waits until an element exists and returns its visible text.
  [[nodiscard]] QString Text(const QString& selector);
  /// True when an element exists and can be seen.
  [[nodiscard]] bool Shows(const QString& selector);

  /// Opens a tab and makes it the current one; returns its name.
  QString OpenTab();
  [[nodiscard]] QString CurrentTab();
  void SwitchTo(const QString& tab);
  /// Closes the current tab and makes the first of the others current.
  void CloseTab();

  /// Cuts the current tab off from every network, or connects it again.
  void SetOffline(bool offline);
  /// Sends a command of the Chrome DevTools protocol to the current tab.
  QJsonObject Command(const QString& command, const QJsonObject& parameters = {});
  /// What pages wrote to the console since the last call, errors of loading and blocked contents included, as
  /// "LEVEL text".
  [[nodiscard]] QStringList Console();
  /// Writes a PNG file of what the window shows.
  void Picture(const QString& file);
  /// Ends the browser at once, as a crash or an empty battery does.
  void Kill();

 private:
  [[nodiscard]] QString Path(const QString& command) const { return session_ + command; }
  [[nodiscard]] QString Element(const QString& selector);
  void TypeKeys(const QList<char16_t>& keys);
  /// What the page shows and wrote, for the message of a failure.
  [[nodiscard]] QString Seen();
  void WaitSeeing(const std::function<bool()>& condition, const QString& what,
                  std::chrono::milliseconds limit = kWaitLimit);

  QTemporaryDir ownProfile_;
  WebDriver driver_;
  QString session_;
  qint64 process_ = 0;
};

}  // namespace koru::test
