#include "adapters/system/SystemServices.h"

#include <chrono>
#include <filesystem>
#include <system_error>

#include "adapters/system/LocalTime.h"
#include "platform/text/FilePath.h"

namespace koru {

Date SystemClock::Today() const {
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  return Date(std::chrono::floor<std::chrono::days>(LocalTime(now)));
}

bool SystemFileSystem::FileExists(const std::string& path) const {
  std::error_code notThere;
  return std::filesystem::is_regular_file(PathOf(path), notThere);
}

}  // namespace koru
