#include "adapters/system/SyncedFile.h"

#include <unistd.h>

#include <cerrno>

#include "adapters/system/posix/OpenFile.h"

namespace koru {

class SyncedFile::Opened : public OpenFile {
  using OpenFile::OpenFile;
};

SyncedFile::SyncedFile() = default;
SyncedFile::~SyncedFile() = default;
void SyncedFile::Close() { file_.reset(); }

std::error_code SyncedFile::Open(const std::filesystem::path& file) {
  auto opened = std::make_unique<Opened>(file, O_WRONLY | O_APPEND);
  if (!opened->IsOpen()) return {errno, std::system_category()};
  file_ = std::move(opened);
  return {};
}

std::error_code SyncedFile::Append(std::string_view text) {
  const off_t end = lseek(file_->Descriptor(), 0, SEEK_END);
  if (end >= 0 && file_->Write(text)) return {};
  const std::error_code error(errno, std::system_category());
  if (end < 0 || ftruncate(file_->Descriptor(), end) != 0) Close();
  return error;
}

std::error_code SyncedFile::Sync() {
  return fsync(file_->Descriptor()) == 0 ? std::error_code() : std::error_code(errno, std::system_category());
}

}  // namespace koru
