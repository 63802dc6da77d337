#pragma once

#include <memory>

namespace koru {

class TemporaryFolder;

/// Whether the environment names a display (DISPLAY, WAYLAND_DISPLAY) or another platform of the toolkit
/// (QT_QPA_PLATFORM).
[[nodiscard]] bool HasDisplay();

/// Draws windows in memory, on a screen that is large enough for every form. Must be made before the
/// application object and outlive it.
class OffscreenDisplay {
 public:
  /// Throws InputError when the temporary folder cannot be written.
  OffscreenDisplay();
  OffscreenDisplay(const OffscreenDisplay&) = delete;
  OffscreenDisplay& operator=(const OffscreenDisplay&) = delete;
  ~OffscreenDisplay();

 private:
  std::unique_ptr<TemporaryFolder> folder_;
};

}  // namespace koru
