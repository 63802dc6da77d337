#include "tests/support/TemporaryFolder.h"

#include <random>
#include <stdexcept>
#include <system_error>

namespace koru::test {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    path_ = std::filesystem::temp_directory_path() / ("koru-test-" + std::to_string(random()));
    if (std::filesystem::create_directory(path_)) return;
  }
  throw std::runtime_error("no temporary folder could be made");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::File(std::string_view name) const {
  const std::u8string file = (path_ / std::u8string(name.begin(), name.end())).u8string();
  return {file.begin(), file.end()};
}

}  // namespace koru::test
