#include "desktop/floor/server/PageFiles.h"

#include <array>
#include <string_view>
#include <utility>

#include "desktop/floor/page/PageContents.h"
#include "desktop/floor/server/Compression.h"

namespace koru {
namespace {

constexpr int kGoodCompression = 6;
constexpr unsigned kOk = 200;
constexpr std::string_view kIndex = "index.html";

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

}  // namespace

PageFiles::PageFiles() {
  auto [version, contents] = ReadPage();
  for (auto& [name, content] : contents) {
    const bool isIndex = name == kIndex;
    const auto keep = isIndex ? HttpAnswer::Keep::Day : HttpAnswer::Keep::Forever;
    std::string packed = Gzip(content, kGoodCompression);
    std::string path = "/";
    if (!isIndex) path.append("v/").append(version).append("/").append(name);
    files_.emplace(std::move(path), File{HttpAnswer(kOk, TypeOf(name), std::move(content), keep),
                                         HttpAnswer(kOk, TypeOf(name), std::move(packed), keep, true)});
  }
}

std::optional<HttpAnswer> PageFiles::Find(const std::string& path, bool acceptsGzip) const {
  const auto found = files_.find(path);
  if (found == files_.end()) return std::nullopt;
  return acceptsGzip ? found->second.packed : found->second.plain;
}

}  // namespace koru
