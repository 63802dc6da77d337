#include "adapters/system/RunningProgram.h"

#include <system_error>

namespace koru {

std::filesystem::path RunningProgram() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

}  // namespace koru
