#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "desktop/floor/server/HttpAnswer.h"
#include "floor/FloorSession.h"

namespace koru {

/// The lines of a session as the devices of each count read them, made when they are asked for first and kept
/// until lines come or go or FloorLines::kMaxChanges figures have changed. Other figures that have changed
/// since are left to the device's next request for changes, which begins with the revision of the lines.
class KeptLines {
 public:
  explicit KeptLines(FloorSession& session);
  KeptLines(const KeptLines&) = delete;
  KeptLines& operator=(const KeptLines&) = delete;
  ~KeptLines();

  /// How often lines have been made, of whatever count.
  [[nodiscard]] std::int64_t Made() const { return made_; }
  /// The answer with the lines; nothing while they are being made, of which each call does a part: all of it
  /// would hold the desk. `madeBefore` is Made when the request came: lines that were made since then serve
  /// it, even if many figures have changed meanwhile. Otherwise each request would have its own made.
  [[nodiscard]] std::optional<HttpAnswer> Answer(int count, bool acceptsGzip, std::int64_t madeBefore);

 private:
  struct Making;
  struct Kept {
    std::int64_t number = 0;  ///< Made with these
    std::int64_t revision = 0;
    bool open = false;
    HttpAnswer plain;
    HttpAnswer packed;
  };
  struct OfCount {
    std::unique_ptr<Making> making;
    std::optional<Kept> kept;
  };

  [[nodiscard]] bool Serves(const Kept& kept, int count);

  FloorSession& session_;
  std::array<OfCount, kFloorCounts> counts_;
  std::int64_t made_ = 0;
};

}  // namespace koru
