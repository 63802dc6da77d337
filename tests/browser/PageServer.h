#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTcpServer>

class QTcpSocket;

namespace koru::test {

/// Pages on a free port of this machine, for tests of what needs no other server.
class PageServer {
 public:
  /// Throws BrowserError when it cannot listen.
  PageServer();

  /// The type of contents follows from the end of the path; without one it is HTML.
  void Add(const QString& path, const QByteArray& contents) { pages_[path] = contents; }
  void Add(const QString& path, const QString& contents) { Add(path, contents.toUtf8()); }
  /// Adds every file of a folder, which may be one of resources.
  void AddFolder(const QString& path, const QString& folder);
  [[nodiscard]] QString Url(const QString& path, const QString& host = QStringLiteral("127.0.0.1")) const;
  /// How often a path was asked for.
  [[nodiscard]] int Requests(const QString& path) const { return requests_.value(path); }

 private:
  void Answer(QTcpSocket& client);

  QTcpServer server_;
  QHash<QString, QByteArray> pages_;
  QHash<QString, int> requests_;
};

}  // namespace koru::test
