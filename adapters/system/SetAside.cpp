#include "adapters/system/SetAside.h"

#include <string>

namespace koru {

std::filesystem::path SetAside(const std::filesystem::path& file, std::error_code& error) {
  std::filesystem::path kept = file;
  kept += ".damaged";
  for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(kept, error)); ++number) {
    kept = file;
    kept += ".damaged-" + std::to_string(number);
  }
  std::filesystem::rename(file, kept, error);
  return kept;
}

}  // namespace koru
