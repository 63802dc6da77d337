// The process of the desk is killed while a page sends.

#include <gtest/gtest.h>
#include <signal.h>

#include <QProcess>

#include "tests/desktop/floor/page/PageWorld.h"

namespace koru::test {
namespace {

inline constexpr PageGood kAcknowledged{"G1", "101", "چاي"};
inline constexpr PageGood kUnheard{"G2", "102", "قند"};
inline constexpr PageGood kSent{"G3", "103", "شكر"};
inline constexpr PageGood kLater{"G4", "104", "برنج"};

/// A desk in a process of its own.
class DeskProcess {
 public:
  explicit DeskProcess(const QTemporaryDir& folder, const QString& port = QStringLiteral("0")) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(KORU_DESK_PROGRAM), {folder.filePath(QStringLiteral("work.koru")),
                                                       folder.filePath(QStringLiteral("floor")), port});
    WaitUntil([&] { return process_.canReadLine() || process_.state() == QProcess::NotRunning; },
              QStringLiteral("the start of the desk"));
    said_ = QString::fromUtf8(process_.readLine()).trimmed().split(QLatin1Char(' '));
    if (said_.size() != 3) throw BrowserError(QStringLiteral("the desk did not start"));
  }
  DeskProcess(const DeskProcess&) = delete;
  DeskProcess& operator=(const DeskProcess&) = delete;
  ~DeskProcess() { Kill(); }

  [[nodiscard]] QString Port() const { return said_[0]; }
  [[nodiscard]] QString Url() const {
    return QStringLiteral("http://127.0.0.1:%1/#%2").arg(said_[0], said_[1]);
  }
  /// The number of figures that it entered from the journal.
  [[nodiscard]] int Left() const { return said_[2].toInt(); }

  /// From now on it reads nothing of what is sent to it.
  void Freeze() { kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }
  void Kill() {
    if (process_.state() == QProcess::NotRunning) return;
    kill(static_cast<pid_t>(process_.processId()), SIGKILL);
    process_.waitForFinished();
  }

 private:
  QProcess process_;
  QStringList said_;
};

/// The figures of the desk, as it sends them now.
QString FiguresOfDesk(Browser& browser) {
  return browser
      .Run(QStringLiteral("return fetch('a/lines', {headers: {Authorization: 'Bearer ' + "
                          "localStorage.getItem('koru.code')}}).then(answer => answer.json())"
                          ".then(({lines}) => lines.map(line => line[0] + '=' + line[5]).join(' '))"))
      .toString();
}

TEST(PageKilledDesk, Keeps_what_it_acknowledged_and_gets_once_what_it_had_not_answered_when_it_begins_again) {
  const QTemporaryDir folder;
  auto desk = std::make_unique<DeskProcess>(folder);
  const QString port = desk->Port();
  Browser browser;
  browser.Open(desk->Url());
  GiveName(browser, Text("رضا"));
  WaitForState(browser, kAllArrived);
  Count(browser, kAcknowledged, QStringLiteral("7"));
  browser.WaitFor(QStringLiteral("document.getElementById('progress-text').textContent.startsWith('1 ')"));
  WaitForState(browser, kAllArrived);

  AddUnheard(browser, kUnheard, QStringLiteral("5"));
  desk->Freeze();
  Add(browser, kSent, QStringLiteral("3"));
  browser.WaitFor(QStringLiteral("window.sent.some(body => body.includes('G3'))"),
                  QStringLiteral("it is sent"));
  desk->Kill();
  Count(browser, kLater, QStringLiteral("4"));
  WaitForLeft(browser, 3);
  HearAgain(browser);

  desk = std::make_unique<DeskProcess>(folder, port);
  EXPECT_EQ(desk->Left(), 2) << "what was acknowledged, and what was answered without being heard";
  WaitForState(browser, kAllArrived);
  EXPECT_EQ(FiguresOfDesk(browser), QStringLiteral("G1=7 G2=5 G3=3 G4=4 G5= G6="));
  EXPECT_EQ(browser.Text(QStringLiteral("#notices-number")), QString());
}

}  // namespace
}  // namespace koru::test
