#include "desktop/floor/server/KeptLines.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "desktop/floor/server/Compression.h"
#include "desktop/floor/server/FloorJson.h"

namespace koru {
namespace {

constexpr unsigned kOk = 200;
constexpr const char* kJson = "application/json";
constexpr std::size_t kLinesAtOnce = 1000;
constexpr int kFastCompression = 1;

}  // namespace

/// Lines on their way to a Kept: those of one revision, however long it takes.
struct KeptLines::Making {
  Making(FloorSession& session, int count)
      : now(session.ChangesSince(0, count)), lines(session.Lines(count)) {
    text = LinesJson(now.revision, count, now.open);
    packed.Add(text);
  }

  /// Adds some lines, the end after the last of them. False when all had been added before.
  bool Add() {
    if (isWhole) return false;
    const std::size_t before = text.size();
    const auto next = std::span<const FloorLine>(lines).subspan(first);
    AppendLines(text, next.first(std::min(next.size(), kLinesAtOnce)), first == 0);
    first += std::min(next.size(), kLinesAtOnce);
    isWhole = first == lines.size();
    if (isWhole) text += kLinesEnd;
    packed.Add(std::string_view(text).substr(before));
    return true;
  }

  FloorChanges now;
  std::vector<FloorLine> lines;
  std::size_t first = 0;  ///< of those that have not been added
  bool isWhole = false;
  std::string text;
  GzipText packed{kFastCompression};
};

KeptLines::KeptLines(FloorSession& session) : session_(session) {}
KeptLines::~KeptLines() = default;

bool KeptLines::Serves(const Kept& kept, int count) {
  const FloorChanges changes = session_.ChangesSince(kept.revision, count);
  return !changes.linesChanged && changes.open == kept.open;
}

std::optional<HttpAnswer> KeptLines::Answer(int count, bool acceptsGzip, std::int64_t madeBefore) {
  auto& [making, kept] = counts_.at(static_cast<std::size_t>(count - 1));
  const bool serves = kept && (kept->number > madeBefore || (making == nullptr && Serves(*kept, count)));
  if (!serves && making == nullptr) {
    making = std::make_unique<Making>(session_, count);
    return std::nullopt;
  }
  if (!serves) {
    if (making->Add()) return std::nullopt;
    kept =
        Kept{++made_, making->now.revision, making->now.open, HttpAnswer(kOk, kJson, std::move(making->text)),
             HttpAnswer(kOk, kJson, making->packed.Finish(), HttpAnswer::Keep::Never, true)};
    making.reset();
  }
  return acceptsGzip ? kept->packed : kept->plain;
}

}  // namespace koru
