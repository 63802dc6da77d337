#include "tests/browser/WebDriver.h"

#include <signal.h>
#include <sys/prctl.h>

#include <QJsonDocument>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStandardPaths>
#include <memory>

#include "tests/browser/Wait.h"

namespace koru::test {

WebDriver::WebDriver(const QString& folder) {
  network_.setProxy(QNetworkProxy::NoProxy);
  Start(folder);
}

WebDriver::~WebDriver() {
  process_.terminate();
  if (process_.waitForFinished(5'000)) return;
  process_.kill();
  process_.waitForFinished(5'000);
}

void WebDriver::Start(const QString& folder) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("chromedriver"));
  if (program.isEmpty())
    throw BrowserError(
        QStringLiteral("chromedriver is not installed: scripts/install-packages tests installs it"));
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder);
  environment.insert(QStringLiteral("XDG_CACHE_HOME"), folder);
  environment.insert(QStringLiteral("TMPDIR"), folder);
  process_.setProcessEnvironment(environment);
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  // chromedriver looks for a port that is free for one version of IP; another program may have it for the
  // other one.
  constexpr int kAttempts = 10;
  QString said;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    said = Launch(program);
    if (!address_.isEmpty()) return;
    if (!said.contains(QStringLiteral("port not available"))) break;
  }
  throw BrowserError(QStringLiteral("chromedriver did not start: ") + said);
}

/// Sets the address where chromedriver listens; leaves it empty when that does not start. Returns what it
/// printed.
QString WebDriver::Launch(const QString& program) {
  process_.start(program, {QStringLiteral("--port=0")});
  static const QRegularExpression started(QStringLiteral("started successfully on port (\\d+)"));
  QString said;
  QRegularExpressionMatch match;
  WaitUntil(
      [&] {
        said += QString::fromUtf8(process_.readAll());
        match = started.match(said);
        return match.hasMatch() || process_.state() == QProcess::NotRunning;
      },
      QStringLiteral("the start of chromedriver"));
  if (match.hasMatch()) address_ = QStringLiteral("http://127.0.0.1:") + match.captured(1);
  return said;
}

QJsonValue WebDriver::Post(const QString& path, const QJsonObject& body) {
  return Send("POST", path, QJsonDocument(body).toJson(QJsonDocument::Compact));
}

QJsonValue WebDriver::Get(const QString& path) { return Send("GET", path, {}); }

QJsonValue WebDriver::Delete(const QString& path) { return Send("DELETE", path, {}); }

QJsonValue WebDriver::Send(const QByteArray& method, const QString& path, const QByteArray& body) {
  QNetworkRequest request(QUrl(address_ + path));
  request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json; charset=utf-8"));
  const std::unique_ptr<QNetworkReply> reply(network_.sendCustomRequest(request, method, body));
  const QString asked = QString::fromUtf8(method) + QLatin1Char(' ') + path;
  WaitUntil([&] { return reply->isFinished() || process_.state() == QProcess::NotRunning; }, asked);
  if (!reply->isFinished()) throw BrowserError(asked + QStringLiteral(": chromedriver has ended"));

  const QByteArray answer = reply->readAll();
  const QJsonValue value = QJsonDocument::fromJson(answer).object().value(QStringLiteral("value"));
  if (reply->error() == QNetworkReply::NoError) return value;
  const QString message = value.toObject().value(QStringLiteral("message")).toString();
  throw BrowserError(asked + QStringLiteral(": ") +
                     (message.isEmpty() ? reply->errorString() : message.section(QLatin1Char('\n'), 0, 0)));
}

}  // namespace koru::test
