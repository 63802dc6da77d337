#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <string_view>

#include "adapters/system/AppendedFile.h"

namespace koru {

struct LogSettings {
  std::string path;        ///< UTF-8; empty: no log
  bool withTexts = false;  ///< whether typed texts are written as they are, instead of masked
  std::string program;     ///< distinguishes the programs that write to one file, such as a process number
};

/// A text file to which programs and threads append whole lines; lines never mix. A file that cannot be
/// written is reported once on the error output, and nothing more is written; the logged work
/// continues.
class LogFile {
 public:
  using Clock = std::chrono::system_clock;

  /// Opens the file and notes that the program has begun. Only an ordinary file is written, or a device;
  /// never a database file, whose locks a second descriptor in the process would release.
  explicit LogFile(LogSettings settings);

  [[nodiscard]] bool IsOn() const;
  [[nodiscard]] const LogSettings& Settings() const { return settings_; }
  /// The number of a new connection, from 1.
  [[nodiscard]] int NextConnection();

  /// Appends one line of `begun`, the duration and the given fields, separated by tabs. Control characters in
  /// the fields are written as escapes, so that a statement of several lines stays one.
  void Append(Clock::time_point begun, std::chrono::nanoseconds duration, std::string_view connection,
              std::string_view outcome, std::string_view text) noexcept;

 private:
  void Open();
  void Write(const std::string& line);
  void GiveUp(const std::string& why) noexcept;

  LogSettings settings_;
  mutable std::mutex mutex_;
  AppendedFile file_;  ///< open while the log is on
  int connections_ = 0;
};

}  // namespace koru
