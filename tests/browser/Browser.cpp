#include "tests/browser/Browser.h"

#include <signal.h>
#include <unistd.h>

#include <QFile>
#include <QStandardPaths>
#include <utility>

namespace koru::test {
namespace {

const QString kElement = QStringLiteral("element-6066-11e4-a52e-4f735466cecf");

QStringList Arguments(const BrowserSettings& settings, const QString& profile) {
  QStringList arguments = {
      QStringLiteral("--headless=new"),
      QStringLiteral("--user-data-dir=") + profile,
      QStringLiteral("--remote-debugging-pipe"),  // the browser ends when the driver does
      QStringLiteral("--no-proxy-server"),
      QStringLiteral("--disable-dev-shm-usage"),  // containers have little of it
      QStringLiteral("--disable-gpu"),
      QStringLiteral("--disable-background-timer-throttling"),
      QStringLiteral("--disable-backgrounding-occluded-windows"),
      QStringLiteral("--disable-renderer-backgrounding"),
  };
  if (geteuid() == 0) arguments += QStringLiteral("--no-sandbox");
  return arguments + settings.arguments;
}

QJsonObject Capabilities(const BrowserSettings& settings, const QString& profile) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("chromium"));
  if (program.isEmpty())
    throw BrowserError(
        QStringLiteral("chromium is not installed: scripts/install-packages tests installs it"));
  const QJsonObject screen{{"width", settings.window.width()},
                           {"height", settings.window.height()},
                           {"pixelRatio", 1.0},
                           {"touch", settings.touch},
                           {"mobile", settings.touch}};
  const QJsonObject options{
      {"binary", program},
      {"args", QJsonArray::fromStringList(Arguments(settings, profile))},
      {"mobileEmulation", QJsonObject{{"deviceMetrics", screen}}},
  };
  const QJsonObject wanted{{"acceptInsecureCerts", settings.acceptsInsecureCertificates},
                           {"goog:chromeOptions", options},
                           {"goog:loggingPrefs", QJsonObject{{"browser", "ALL"}}}};
  return {{"capabilities", QJsonObject{{"alwaysMatch", wanted}}}};
}

}  // namespace

Browser::Browser(BrowserSettings settings)
    : driver_(settings.profile.isEmpty() ? ownProfile_.path() : settings.profile) {
  const QString profile = settings.profile.isEmpty() ? ownProfile_.path() : settings.profile;
  const QJsonObject session =
      driver_.Post(QStringLiteral("/session"), Capabilities(settings, profile + QStringLiteral("/chromium")))
          .toObject();
  session_ = QStringLiteral("/session/") + session.value(QStringLiteral("sessionId")).toString();
  process_ = session.value(QStringLiteral("capabilities"))
                 .toObject()
                 .value(QStringLiteral("goog:processID"))
                 .toInteger();
}

Browser::~Browser() {
  if (session_.isEmpty()) return;
  try {
    driver_.Delete(session_);
  } catch (const BrowserError& error) {
    qInfo("the browser did not end by itself: %s", error.what());
  }
}

void Browser::Open(const QString& url) { driver_.Post(Path(QStringLiteral("/url")), {{"url", url}}); }

void Browser::Reload() { driver_.Post(Path(QStringLiteral("/refresh")), {}); }

void Browser::Back() { driver_.Post(Path(QStringLiteral("/back")), {}); }

QString Browser::Url() { return driver_.Get(Path(QStringLiteral("/url"))).toString(); }

QString Browser::Title() { return driver_.Get(Path(QStringLiteral("/title"))).toString(); }

QJsonValue Browser::Run(const QString& script, const QJsonArray& args) {
  return driver_.Post(Path(QStringLiteral("/execute/sync")), {{"script", script}, {"args", args}});
}

void Browser::WaitFor(const QString& condition, const QString& what, std::chrono::milliseconds limit) {
  const QString script = QStringLiteral("return Boolean(%1)").arg(condition);
  WaitSeeing([&] { return Run(script).toBool(); }, what.isEmpty() ? condition : what, limit);
}

void Browser::WaitSeeing(const std::function<bool()>& condition, const QString& what,
                         std::chrono::milliseconds limit) {
  try {
    WaitUntil(condition, what, limit);
  } catch (const BrowserError& error) {
    throw BrowserError(QString::fromUtf8(error.what()) + QLatin1Char('\n') + Seen());
  }
}

QString Browser::Seen() {
  try {
    const QString text =
        Run(QStringLiteral("return document.body ? document.body.innerText : ''")).toString();
    return QStringLiteral("page %1 shows: %2\nconsole: %3")
        .arg(Url(), text.left(2000), Console().join(QLatin1Char('\n')));
  } catch (const BrowserError& error) {
    return QStringLiteral("what the page shows cannot be read: ") + QString::fromUtf8(error.what());
  }
}

void Browser::Keys(const QString& text) {
  QList<char16_t> keys;
  for (const QChar letter : text)
    keys += letter == QLatin1Char('\n') ? char16_t(BrowserKey::Enter) : letter.unicode();
  TypeKeys(keys);
}

void Browser::Press(BrowserKey key) { TypeKeys({char16_t(key)}); }

void Browser::TypeKeys(const QList<char16_t>& keys) {
  QJsonArray presses;
  for (const char16_t key : keys) {
    const QString value{QChar(key)};
    presses += QJsonObject{{"type", "keyDown"}, {"value", value}};
    presses += QJsonObject{{"type", "keyUp"}, {"value", value}};
  }
  const QJsonObject keyboard{{"type", "key"}, {"id", "keyboard"}, {"actions", presses}};
  driver_.Post(Path(QStringLiteral("/actions")), {{"actions", QJsonArray{keyboard}}});
}

QString Browser::Element(const QString& selector) {
  WaitSeeing(
      [&] {
        return Run(QStringLiteral("return !!document.querySelector(arguments[0])"), {selector}).toBool();
      },
      QStringLiteral("an element ") + selector);
  return driver_.Post(Path(QStringLiteral("/element")), {{"using", "css selector"}, {"value", selector}})
      .toObject()
      .value(kElement)
      .toString();
}

void Browser::Click(const QString& selector) {
  WaitSeeing([&] { return Shows(selector); }, QStringLiteral("a visible element ") + selector);
  driver_.Post(Path(QStringLiteral("/element/%1/click").arg(Element(selector))), {});
}

QString Browser::Text(const QString& selector) {
  return driver_.Get(Path(QStringLiteral("/element/%1/text").arg(Element(selector)))).toString();
}

bool Browser::Shows(const QString& selector) {
  return Run(QStringLiteral("const element = document.querySelector(arguments[0]);"
                            "return !!element && element.checkVisibility({checkVisibilityCSS: true})"),
             {selector})
      .toBool();
}

QString Browser::OpenTab() {
  const QString tab = driver_.Post(Path(QStringLiteral("/window/new")), {{"type", "tab"}})
                          .toObject()
                          .value(QStringLiteral("handle"))
                          .toString();
  SwitchTo(tab);
  return tab;
}

QString Browser::CurrentTab() { return driver_.Get(Path(QStringLiteral("/window"))).toString(); }

void Browser::SwitchTo(const QString& tab) {
  driver_.Post(Path(QStringLiteral("/window")), {{"handle", tab}});
}

void Browser::CloseTab() {
  const QJsonArray others = driver_.Delete(Path(QStringLiteral("/window"))).toArray();
  if (!others.isEmpty()) SwitchTo(others.first().toString());
}

void Browser::SetOffline(bool offline) {
  Command(QStringLiteral("Network.enable"));  // without it the next command does nothing and reports success
  Command(QStringLiteral("Network.emulateNetworkConditions"),
          {{"offline", offline}, {"latency", 0}, {"downloadThroughput", -1}, {"uploadThroughput", -1}});
}

QJsonObject Browser::Command(const QString& command, const QJsonObject& parameters) {
  return driver_.Post(Path(QStringLiteral("/goog/cdp/execute")), {{"cmd", command}, {"params", parameters}})
      .toObject();
}

QStringList Browser::Console() {
  QStringList lines;
  const QJsonArray entries = driver_.Post(Path(QStringLiteral("/se/log")), {{"type", "browser"}}).toArray();
  for (const QJsonValue& entry : entries) {
    const QJsonObject line = entry.toObject();
    lines += line.value(QStringLiteral("level")).toString() + QLatin1Char(' ') +
             line.value(QStringLiteral("message")).toString();
  }
  return lines;
}

void Browser::Picture(const QString& file) {
  const QByteArray picture =
      QByteArray::fromBase64(driver_.Get(Path(QStringLiteral("/screenshot"))).toString().toUtf8());
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(picture) != picture.size())
    throw BrowserError(QStringLiteral("the picture cannot be written: ") + file);
}

void Browser::Kill() {
  if (process_ <= 0)
    throw BrowserError(QStringLiteral("the driver does not name the process of the browser"));
  kill(pid_t(process_), SIGKILL);
  session_.clear();
}

}  // namespace koru::test
