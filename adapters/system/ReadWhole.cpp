#include "adapters/system/ReadWhole.h"

#include <cerrno>
#include <cstdint>
#include <fstream>

namespace koru {

std::string ReadWhole(const std::filesystem::path& file, std::error_code& error) {
  std::string text;
  const std::uintmax_t size = std::filesystem::file_size(file, error);
  if (error) return text;
  text.resize(size);
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  if (!stream.read(text.data(), static_cast<std::streamsize>(size)))
    error.assign(errno, std::generic_category());
  return text;
}

}  // namespace koru
