#pragma once

#include "host/HostSession.h"
#include "host/HostWindow.h"
#include "scenario/UiDriver.h"

namespace koru {

/// The window of the program koru-counting with a session and settings of its own.
class ProgramWindow {
 public:
  /// Throws InputError when the settings in the folder cannot be read.
  explicit ProgramWindow(const ProgramStart& start);

  /// Shows the window as the program does at its start.
  void Show();
  [[nodiscard]] HostWindow& Window() { return window_; }
  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
  HostSession session_;
  HostWindow window_;
};

}  // namespace koru
