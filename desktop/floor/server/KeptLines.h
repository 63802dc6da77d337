#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "desktop/floor/server/HttpAnswer.h"
#include "floor/FloorSession.h"

namespace koru {

/// The lines of a session as the devices of each count read them, made when they are asked for first and kept
/// until lines come or go. Figures that have changed since are left to the device's next request for changes,
/// which begins with the revision of the lines.
class KeptLines {
 public:
  explicit KeptLines(FloorSession& session) : session_(session) {}

  /// Whether Answer has to make them, which takes as long as all else that the desk does for devices.
  [[nodiscard]] bool IsToBeMade(int count);
  [[nodiscard]] HttpAnswer Answer(int count, bool acceptsGzip);

 private:
  struct Kept {
    std::int64_t revision = 0;
    bool open = false;
    HttpAnswer plain;
    HttpAnswer packed;
  };

  FloorSession& session_;
  std::array<std::optional<Kept>, kFloorCounts> kept_;
};

}  // namespace koru
