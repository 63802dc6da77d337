#pragma once

#include "platform/ports/HostServices.h"

namespace koru {

/// The machine's clock and time zone.
class SystemClock : public Clock {
 public:
  [[nodiscard]] Date Today() const override;
};

/// The machine's files; paths are UTF-8.
class SystemFileSystem : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& path) const override;
};

}  // namespace koru
