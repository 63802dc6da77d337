#include "adapters/system/SyncedFile.h"

#include "adapters/system/windows/OpenFile.h"

namespace koru {
namespace {

std::error_code LastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

}  // namespace

class SyncedFile::Opened : public OpenFile {
  using OpenFile::OpenFile;
};

SyncedFile::SyncedFile() = default;
SyncedFile::~SyncedFile() = default;
void SyncedFile::Close() { file_.reset(); }

std::error_code SyncedFile::Open(const std::filesystem::path& file) {
  auto opened = std::make_unique<Opened>(file, GENERIC_WRITE, OpenFile::kEverybody, OPEN_EXISTING);
  if (!opened->IsOpen()) return LastError();
  file_ = std::move(opened);
  return {};
}

std::error_code SyncedFile::Append(std::string_view text) {
  constexpr LARGE_INTEGER kNothing{};
  LARGE_INTEGER end{};
  const bool isAtEnd = SetFilePointerEx(file_->Handle(), kNothing, &end, FILE_END) != 0;
  if (isAtEnd && file_->Write(text)) return {};
  const std::error_code error = LastError();
  const bool isRestored = isAtEnd && SetFilePointerEx(file_->Handle(), end, nullptr, FILE_BEGIN) != 0 &&
                          SetEndOfFile(file_->Handle()) != 0;
  if (!isRestored) Close();
  return error;
}

std::error_code SyncedFile::Sync() {
  return FlushFileBuffers(file_->Handle()) != 0 ? std::error_code() : LastError();
}

}  // namespace koru
