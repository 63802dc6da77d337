#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QString>

namespace koru::test {

/// A chromedriver process and the requests to it (W3C WebDriver). The process ends with this object, and with
/// this program however that ends.
class WebDriver {
 public:
  /// Starts chromedriver on a free port. Throws BrowserError when it is missing or does not start. The
  /// browser keeps its caches and settings in the folder.
  explicit WebDriver(const QString& folder);
  ~WebDriver();
  WebDriver(const WebDriver&) = delete;
  WebDriver& operator=(const WebDriver&) = delete;

  /// Sends a request and runs the event loop until its answer; returns the member "value".
  /// Throws BrowserError with the driver's message on an error, and when there is no answer in time.
  QJsonValue Post(const QString& path, const QJsonObject& body);
  QJsonValue Get(const QString& path);
  QJsonValue Delete(const QString& path);

 private:
  QJsonValue Send(const QByteArray& method, const QString& path, const QByteArray& body);
  void Start(const QString& folder);
  [[nodiscard]] QString Launch(const QString& program);

  QProcess process_;
  QNetworkAccessManager network_;
  QString address_;
};

}  // namespace koru::test
