#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace koru::test {

/// No file of this process grows beyond the given number of bytes while it lives, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }

 private:
  rlimit before_{};
  void (*signal_)(int);
};

/// The process may read the folder and the one above it, and write into neither, while it lives. Who may do
/// everything is somebody else for that time.
class LockedFolder {
 public:
  explicit LockedFolder(const std::filesystem::path& folder) : folder_(folder) {
    std::filesystem::permissions(folder_.parent_path(), kReadOnly);
    std::filesystem::permissions(folder_, kReadOnly);
    constexpr uid_t kNobody = 65534;
    locked_ = user_ != 0 || seteuid(kNobody) == 0;
  }
  LockedFolder(const LockedFolder&) = delete;
  LockedFolder& operator=(const LockedFolder&) = delete;
  ~LockedFolder() {
    locked_ = locked_ && seteuid(user_) == 0;
    std::filesystem::permissions(folder_.parent_path(), std::filesystem::perms::owner_all);
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
  }
  /// False where the process could not be made somebody else.
  [[nodiscard]] bool Locked() const { return locked_; }

 private:
  static constexpr auto kReadOnly = static_cast<std::filesystem::perms>(0555);
  std::filesystem::path folder_;
  uid_t user_ = geteuid();
  bool locked_ = false;
};

}  // namespace koru::test
