#include "adapters/system/AppendedFile.h"

#include <cerrno>

#include "adapters/system/posix/OpenFile.h"

namespace koru {

class AppendedFile::Opened : public OpenFile {
  using OpenFile::OpenFile;
};

AppendedFile::AppendedFile() = default;
AppendedFile::~AppendedFile() = default;
void AppendedFile::Close() { file_.reset(); }

std::error_code AppendedFile::Open(const std::filesystem::path& file) {
  constexpr mode_t kUmaskDecides = 0666;
  auto opened = std::make_unique<Opened>(file, O_WRONLY | O_CREAT | O_APPEND, kUmaskDecides);
  if (!opened->IsOpen()) return {errno, std::system_category()};
  file_ = std::move(opened);
  return {};
}

std::error_code AppendedFile::Append(std::string_view text) {
  return file_->Write(text) ? std::error_code() : std::error_code(errno, std::system_category());
}

}  // namespace koru
