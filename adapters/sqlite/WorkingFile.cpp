#include "adapters/sqlite/WorkingFile.h"

#include <random>
#include <string>
#include <system_error>

namespace koru {

WorkingFile::WorkingFile(const std::filesystem::path& target) : path_(target) {
  path_ += ".new-" + std::to_string(std::random_device()());
}

WorkingFile::~WorkingFile() {
  std::error_code ignored;
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
    std::filesystem::path leftover = path_;
    std::filesystem::remove(leftover += suffix, ignored);
  }
}

}  // namespace koru
