#include "adapters/system/LockFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "adapters/system/posix/OpenFile.h"

namespace koru {

/// The file is removed before it is closed, so that whoever opened it meanwhile finds that it is no longer at
/// its path.
class LockFile::Held {
 public:
  Held(const std::filesystem::path& path, OpenFile open) : path_(path), open_(std::move(open)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() { unlink(path_.c_str()); }

 private:
  std::filesystem::path path_;
  OpenFile open_;
};

namespace {

bool IsAt(const std::filesystem::path& path, const OpenFile& file) {
  struct stat there {};
  struct stat here {};
  return stat(path.c_str(), &there) == 0 && fstat(file.Descriptor(), &here) == 0 &&
         there.st_ino == here.st_ino && there.st_dev == here.st_dev;
}

}  // namespace

LockFile::LockFile() = default;
LockFile::LockFile(LockFile&& other) noexcept = default;
LockFile& LockFile::operator=(LockFile&& other) noexcept = default;
LockFile::~LockFile() = default;

LockFile::LockFile(const std::filesystem::path& file, std::error_code& error) {
  OpenFile open(file, O_RDWR | O_CREAT);
  if (!open.IsOpen() || flock(open.Descriptor(), LOCK_EX | LOCK_NB) != 0) {
    error.assign(errno, std::system_category());
  } else if (!IsAt(file, open)) {
    error = std::make_error_code(std::errc::resource_unavailable_try_again);
  } else {
    held_ = std::make_unique<Held>(file, std::move(open));
  }
}

}  // namespace koru
