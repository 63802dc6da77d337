#include "adapters/system/AppendedFile.h"

#include "adapters/system/windows/OpenFile.h"

namespace koru {
namespace {

std::error_code LastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

}  // namespace

class AppendedFile::Opened : public OpenFile {
  using OpenFile::OpenFile;
};

namespace {

/// RAII lock between programs: the one that holds it writes. A device needs none and has none. The locked
/// byte is far beyond the end of the file, since nobody else could read a byte that is locked.
class WriterLock {
 public:
  explicit WriterLock(const OpenFile& file) : file_(file) {
    needed_ = GetFileType(file.Handle()) == FILE_TYPE_DISK;
    held_ = needed_ && LockFileEx(file.Handle(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place_) != 0;
  }
  WriterLock(const WriterLock&) = delete;
  WriterLock& operator=(const WriterLock&) = delete;
  ~WriterLock() {
    if (held_) UnlockFileEx(file_.Handle(), 0, 1, 0, &place_);
  }

  /// False: the thread's last error says why.
  [[nodiscard]] bool MayWrite() const { return held_ || !needed_; }

 private:
  static OVERLAPPED FarPlace() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    return place;
  }

  const OpenFile& file_;
  OVERLAPPED place_ = FarPlace();
  bool needed_ = false;
  bool held_ = false;
};

}  // namespace

AppendedFile::AppendedFile() = default;
AppendedFile::~AppendedFile() = default;
void AppendedFile::Close() { file_.reset(); }

// The right to append, without that to write, makes each write find the end of the file. Windows does both in
// one step, Wine in two, and a text that is written in parts is several writes: hence the lock, which needs
// the right to read.
std::error_code AppendedFile::Open(const std::filesystem::path& file) {
  auto opened =
      std::make_unique<Opened>(file, FILE_APPEND_DATA | FILE_READ_DATA, OpenFile::kEverybody, OPEN_ALWAYS);
  if (!opened->IsOpen()) return LastError();
  file_ = std::move(opened);
  return {};
}

std::error_code AppendedFile::Append(std::string_view text) {
  const WriterLock lock(*file_);
  return lock.MayWrite() && file_->Write(text) ? std::error_code() : LastError();
}

}  // namespace koru
