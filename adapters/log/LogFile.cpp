#include "adapters/log/LogFile.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <utility>

#include "adapters/system/ErrorText.h"
#include "adapters/system/LocalTime.h"
#include "platform/text/Date.h"
#include "platform/text/FilePath.h"

namespace koru {
namespace {

constexpr std::string_view kDatabaseFile = "SQLite format 3";

bool IsDatabase(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, kDatabaseFile.size()> begin{};
  return file.read(begin.data(), begin.size()) &&
         std::string_view(begin.data(), begin.size()) == kDatabaseFile;
}

/// Why the file is not written; empty when it is. A pipe would make the program wait for a reader.
std::string Refusal(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_type type = std::filesystem::status(path, error).type();
  if (type == std::filesystem::file_type::not_found || type == std::filesystem::file_type::character)
    return {};
  if (type != std::filesystem::file_type::regular) return "not a file";
  return IsDatabase(path) ? "a database" : "";
}

/// Local time with its offset, `2025-12-21 09:03:20.123+0330`.
std::string TimeText(LogFile::Clock::time_point time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
  const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time - seconds);
  const std::chrono::local_seconds local = LocalTime(seconds);
  const auto date = std::chrono::floor<std::chrono::days>(local);
  const std::chrono::hh_mm_ss<std::chrono::seconds> clock(local - date);
  const auto offset =
      std::chrono::floor<std::chrono::minutes>(local.time_since_epoch() - seconds.time_since_epoch());
  const std::chrono::hh_mm_ss<std::chrono::minutes> shift(offset);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), " %02d:%02d:%02d.%03d%c%02d%02d",
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()), static_cast<int>(milliseconds.count()),
                shift.is_negative() ? '-' : '+', static_cast<int>(shift.hours().count()),
                static_cast<int>(shift.minutes().count()));
  return IsoText(Date(date)) + text.data();
}

std::string DurationText(std::chrono::nanoseconds duration) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%.3f ms", static_cast<double>(duration.count()) / 1e6);
  return text.data();
}

void AppendEscaped(std::string& line, std::string_view text) {
  for (const char c : text) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else if (c == '\t') {
      line += "\\t";
    } else {
      line += static_cast<unsigned char>(c) < 0x20 ? '?' : c;
    }
  }
}

}  // namespace

LogFile::LogFile(LogSettings settings) : settings_(std::move(settings)) {
  if (settings_.path.empty()) return;
  Open();
  Append(Clock::now(), {}, "program", "begins",
         settings_.withTexts ? "typed texts are written" : "typed texts are masked");
}

void LogFile::Open() {
  const std::filesystem::path path = PathOf(settings_.path);
  if (const std::string refusal = Refusal(path); !refusal.empty()) return GiveUp(refusal);
  if (const std::error_code error = file_.Open(path)) GiveUp(ErrorText(error));
}

bool LogFile::IsOn() const {
  const std::lock_guard lock(mutex_);
  return file_.IsOpen();
}

int LogFile::NextConnection() {
  const std::lock_guard lock(mutex_);
  return ++connections_;
}

void LogFile::Append(Clock::time_point begun, std::chrono::nanoseconds duration, std::string_view connection,
                     std::string_view outcome, std::string_view text) noexcept {
  const std::lock_guard lock(mutex_);
  if (!file_.IsOpen()) return;
  try {
    std::string line = TimeText(begun) + '\t' + DurationText(duration) + '\t' + settings_.program + '\t';
    AppendEscaped(line, connection);
    line += '\t';
    AppendEscaped(line, outcome);
    line += '\t';
    AppendEscaped(line, text);
    Write(line + '\n');
  } catch (const std::exception& failure) {  // no memory: the work itself may still succeed
    GiveUp(failure.what());
  }
}

void LogFile::Write(const std::string& line) {
  if (const std::error_code error = file_.Append(line)) GiveUp(ErrorText(error));
}

void LogFile::GiveUp(const std::string& why) noexcept {
  try {
    file_.Close();
    std::cerr << "koru: the log " << settings_.path << " is not written: " << why << std::endl;
  } catch (...) {  // nobody is left to report to
  }
}

}  // namespace koru
