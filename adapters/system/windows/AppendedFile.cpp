#include "adapters/system/AppendedFile.h"

#include "adapters/system/windows/OpenFile.h"

namespace koru {
namespace {

std::error_code LastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

}  // namespace

class AppendedFile::Opened : public OpenFile {
  using OpenFile::OpenFile;
};

AppendedFile::AppendedFile() = default;
AppendedFile::~AppendedFile() = default;
void AppendedFile::Close() { file_.reset(); }

// The right to append alone lets Windows find the end of the file at each write. The C library looks for it
// first, and other programs can write meanwhile.
std::error_code AppendedFile::Open(const std::filesystem::path& file) {
  auto opened = std::make_unique<Opened>(file, FILE_APPEND_DATA, OpenFile::kEverybody, OPEN_ALWAYS);
  if (!opened->IsOpen()) return LastError();
  file_ = std::move(opened);
  return {};
}

std::error_code AppendedFile::Append(std::string_view text) {
  return file_->Write(text) ? std::error_code() : LastError();
}

}  // namespace koru
