#include "adapters/system/WriteWhole.h"

#include <algorithm>
#include <limits>

#include "adapters/system/windows/OpenFile.h"

namespace koru {
namespace {

bool WriteAll(HANDLE file, std::string_view text) {
  while (!text.empty()) {
    const auto part = std::min<std::size_t>(text.size(), std::numeric_limits<DWORD>::max());
    DWORD written = 0;
    if (WriteFile(file, text.data(), static_cast<DWORD>(part), &written, nullptr) == 0) return false;
    text.remove_prefix(written);
  }
  return true;
}

/// The folder of a user's own files gives them to nobody else.
bool WriteNew(const std::filesystem::path& file, std::string_view text) {
  const OpenFile open(file, GENERIC_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
  return open.IsOpen() && WriteAll(open.Handle(), text) && FlushFileBuffers(open.Handle()) != 0;
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
