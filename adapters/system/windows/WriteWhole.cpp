#include "adapters/system/WriteWhole.h"

#include "adapters/system/windows/OpenFile.h"

namespace koru {
namespace {

/// The folder of a user's own files gives them to nobody else.
bool WriteNew(const std::filesystem::path& file, std::string_view text) {
  const OpenFile open(file, GENERIC_WRITE, OpenFile::kNobody, CREATE_ALWAYS);
  return open.IsOpen() && open.Write(text) && FlushFileBuffers(open.Handle()) != 0;
}

}  // namespace

std::error_code WriteWhole(const std::filesystem::path& file, const std::filesystem::path& written,
                           std::string_view text) {
  if (WriteNew(written, text) &&
      MoveFileExW(written.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return {};
  }
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  DeleteFileW(written.c_str());
  return error;
}

/// Windows writes names through with the file system's own log.
void SyncFolder(const std::filesystem::path& /*folder*/) {}

}  // namespace koru
