#include "desktop/floor/server/KeptLines.h"

#include <cstddef>
#include <string>
#include <utility>

#include "desktop/floor/server/Compression.h"
#include "desktop/floor/server/FloorJson.h"

namespace koru {
namespace {

constexpr unsigned kOk = 200;
constexpr const char* kJson = "application/json";
constexpr std::size_t kMaxLeftToChanges = 500;  ///< figures that a device may read as changes
constexpr int kFastCompression = 1;

}  // namespace

bool KeptLines::IsToBeMade(int count) {
  const auto& kept = kept_.at(static_cast<std::size_t>(count - 1));
  if (!kept) return true;
  const FloorChanges changes = session_.ChangesSince(kept->revision, count);
  return changes.linesChanged || changes.open != kept->open || changes.cells.size() > kMaxLeftToChanges;
}

HttpAnswer KeptLines::Answer(int count, bool acceptsGzip) {
  auto& kept = kept_.at(static_cast<std::size_t>(count - 1));
  if (IsToBeMade(count)) {
    const FloorChanges now = session_.ChangesSince(0, count);
    const auto lines = session_.Lines(count);
    std::string text = LinesJson(now.revision, count, now.open, lines);
    std::string packed = Gzip(text, kFastCompression);
    kept = Kept{now.revision, now.open, HttpAnswer(kOk, kJson, std::move(text)),
                HttpAnswer(kOk, kJson, std::move(packed), HttpAnswer::Keep::Never, true)};
  }
  return acceptsGzip ? kept->packed : kept->plain;
}

}  // namespace koru
