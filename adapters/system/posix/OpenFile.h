#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <utility>

namespace koru {

/// RAII file descriptor.
class OpenFile {
 public:
  static constexpr mode_t kUserAlone = S_IRUSR | S_IWUSR;

  /// `mode` is for a file that is made.
  OpenFile(const std::filesystem::path& file, int flags, mode_t mode = kUserAlone)
      : descriptor_(open(file.c_str(), flags | O_CLOEXEC, mode)) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int Descriptor() const { return descriptor_; }

  /// Sets errno on failure.
  [[nodiscard]] bool Write(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = write(descriptor_, text.data(), text.size());
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

 private:
  int descriptor_;
};

}  // namespace koru
