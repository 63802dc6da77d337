#include "desktop/floor/server/PageFiles.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QString>
#include <array>
#include <utility>

#include "desktop/floor/server/Compression.h"

namespace koru {
namespace {

constexpr int kGoodCompression = 6;
constexpr unsigned kOk = 200;
constexpr std::string_view kIndex = "index.html";
constexpr std::string_view kPlaceholder = "@VERSION@";

const char* TypeOf(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, const char*>, 6> kTypes = {{
      {".html", "text/html; charset=utf-8"},
      {".js", "text/javascript; charset=utf-8"},
      {".css", "text/css; charset=utf-8"},
      {".wasm", "application/wasm"},
      {".svg", "image/svg+xml"},
      {".txt", "text/plain; charset=utf-8"},
  }};
  for (const auto& [ending, type] : kTypes) {
    if (name.ends_with(ending)) return type;
  }
  return "application/octet-stream";
}

/// The contents of all files by their paths in the folder.
std::map<std::string, std::string> ReadAll(std::string_view folder) {
  const QString root = QString::fromUtf8(folder.data(), static_cast<qsizetype>(folder.size()));
  std::map<std::string, std::string> files;
  QDirIterator each(root, QDir::Files, QDirIterator::Subdirectories);
  while (each.hasNext()) {
    QFile file(each.next());
    if (!file.open(QIODevice::ReadOnly)) continue;
    files[file.fileName().mid(root.size() + 1).toStdString()] = file.readAll().toStdString();
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

std::string Replaced(std::string text, std::string_view before, std::string_view after) {
  for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, at)) {
    text.replace(at, before.size(), after);
    at += after.size();
  }
  return text;
}

}  // namespace

PageFiles::PageFiles(std::string_view folder) {
  auto contents = ReadAll(folder);
  version_ = VersionOf(contents);
  for (auto& [name, content] : contents) {
    const bool isIndex = name == kIndex;
    if (isIndex) content = Replaced(std::move(content), kPlaceholder, version_);
    const auto keep = isIndex ? HttpAnswer::Keep::Day : HttpAnswer::Keep::Forever;
    std::string packed = Gzip(content, kGoodCompression);
    files_.emplace(isIndex ? "/" : "/v/" + version_ + "/" + name,
                   File{HttpAnswer(kOk, TypeOf(name), std::move(content), keep),
                        HttpAnswer(kOk, TypeOf(name), std::move(packed), keep, true)});
  }
}

std::optional<HttpAnswer> PageFiles::Find(const std::string& path, bool acceptsGzip) const {
  const auto found = files_.find(path);
  if (found == files_.end()) return std::nullopt;
  return acceptsGzip ? found->second.packed : found->second.plain;
}

}  // namespace koru
