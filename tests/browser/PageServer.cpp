#include "tests/browser/PageServer.h"

#include <QDirIterator>
#include <QFile>
#include <QTcpSocket>

#include "tests/browser/Wait.h"

namespace koru::test {
namespace {

QByteArray TypeOf(const QString& path) {
  if (path.endsWith(QLatin1String(".js"))) return "text/javascript; charset=utf-8";
  if (path.endsWith(QLatin1String(".css"))) return "text/css; charset=utf-8";
  if (path.endsWith(QLatin1String(".wasm"))) return "application/wasm";
  return "text/html; charset=utf-8";
}

}  // namespace

PageServer::PageServer() {
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
    QTcpSocket* const client = server_.nextPendingConnection();
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] { Answer(*client); });
  });
  if (!server_.listen(QHostAddress::LocalHost)) throw BrowserError(server_.errorString());
}

void PageServer::AddFolder(const QString& path, const QString& folder) {
  QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (!file.open(QIODevice::ReadOnly)) throw BrowserError(file.errorString());
    Add(path + file.fileName().mid(folder.size()), file.readAll());
  }
}

QString PageServer::Url(const QString& path, const QString& host) const {
  return QStringLiteral("http://%1:%2%3").arg(host).arg(server_.serverPort()).arg(path);
}

void PageServer::Answer(QTcpSocket& client) {
  if (!client.canReadLine()) return;
  const QString path = QString::fromUtf8(client.readLine()).section(QLatin1Char(' '), 1, 1);
  client.readAll();
  ++requests_[path];
  const QByteArray body = pages_.value(path);
  client.write("HTTP/1.1 " + QByteArray(body.isEmpty() ? "404 Not Found" : "200 OK") + "\r\nContent-Type: " +
               TypeOf(path) + "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\n\r\n" + body);
  client.disconnectFromHost();
}

}  // namespace koru::test
