#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace koru {

/// RAII file descriptor. A file that it makes is its user's alone.
class OpenFile {
 public:
  OpenFile(const std::filesystem::path& file, int flags)
      : descriptor_(open(file.c_str(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace koru
