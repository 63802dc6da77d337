#include "adapters/system/SystemServices.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace koru {

Date SystemClock::Today() const {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return std::chrono::year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
}

bool SystemFileSystem::FileExists(const std::string& path) const {
  std::error_code notThere;
  return std::filesystem::is_regular_file(std::filesystem::path(path), notThere);
}

}  // namespace koru
