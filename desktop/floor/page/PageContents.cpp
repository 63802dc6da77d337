#include "desktop/floor/page/PageContents.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QString>
#include <string_view>

namespace koru {
namespace {

std::map<std::string, std::string> ReadAll(const QString& folder) {
  std::map<std::string, std::string> files;
  QDirIterator each(folder, QDir::Files, QDirIterator::Subdirectories);
  while (each.hasNext()) {
    QFile file(each.next());
    if (!file.open(QIODevice::ReadOnly)) continue;
    files[file.fileName().mid(folder.size() + 1).toStdString()] = file.readAll().toStdString();
  }
  return files;
}

std::string VersionOf(const std::map<std::string, std::string>& files) {
  constexpr qsizetype kLength = 16;
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (const auto& [name, content] : files) {
    hash.addData(QByteArray::fromStdString(name + '\n' + std::to_string(content.size()) + '\n'));
    hash.addData(QByteArray::fromStdString(content));
  }
  return hash.result().toHex().left(kLength).toStdString();
}

void Replace(std::string& text, std::string_view before, std::string_view after) {
  for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, at)) {
    text.replace(at, before.size(), after);
    at += after.size();
  }
}

}  // namespace

PageContents ReadPage() {
  PageContents page;
  page.files = ReadAll(QStringLiteral(":/floor"));
  page.version = VersionOf(page.files);
  Replace(page.files["index.html"], "@VERSION@", page.version);
  return page;
}

}  // namespace koru
