#pragma once

#include "adapters/system/TemporaryFolder.h"

namespace koru {

/// Whether this machine has a screen to show windows on, or the toolkit was told where else to
/// (QT_QPA_PLATFORM).
[[nodiscard]] bool HasScreen();

/// Lets windows be drawn in memory, on a screen that is large enough for every form. To be made before the
/// application object, and to outlive it.
class MemoryScreen {
 public:
  /// Throws InputError when the temporary folder cannot be written.
  MemoryScreen();

 private:
  TemporaryFolder folder_;
};

}  // namespace koru
