#include "adapters/system/LockFile.h"

#include "adapters/system/windows/OpenFile.h"

namespace koru {

/// Windows removes the file when its handle is closed, also when the program is ended.
class LockFile::Held {
 public:
  explicit Held(OpenFile open) : open_(std::move(open)) {}

 private:
  OpenFile open_;
};

LockFile::LockFile() = default;
LockFile::LockFile(LockFile&& other) noexcept = default;
LockFile& LockFile::operator=(LockFile&& other) noexcept = default;
LockFile::~LockFile() = default;

LockFile::LockFile(const std::filesystem::path& file, std::error_code& error) {
  OpenFile open(file, GENERIC_WRITE | DELETE, OpenFile::kNobody, OPEN_ALWAYS,
                FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE);
  if (open.IsOpen()) {
    held_ = std::make_unique<Held>(std::move(open));
  } else {
    error.assign(static_cast<int>(GetLastError()), std::system_category());
  }
}

}  // namespace koru
