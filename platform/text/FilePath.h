#pragma once

#include <filesystem>
#include <string>

namespace koru {

/// The path that a UTF-8 text names, on every operating system.
[[nodiscard]] inline std::filesystem::path PathOf(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

/// The UTF-8 text of a path.
[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace koru
