#include "adapters/system/WriteWhole.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "adapters/system/posix/OpenFile.h"

namespace koru {
namespace {

bool WriteNew(const std::filesystem::path& file, std::string_view text) {
  const OpenFile open(file, O_WRONLY | O_CREAT | O_TRUNC);
  return open.IsOpen() && open.Write(text) && fsync(open.Descriptor()) == 0;
}

}  // namespace

std::error_code WriteWhole(const std::filesystem::path& file, const std::filesystem::path& written,
                           std::string_view text) {
  if (WriteNew(written, text) && std::rename(written.c_str(), file.c_str()) == 0) {
    SyncFolder(file.parent_path());
    return {};
  }
  const std::error_code error(errno, std::system_category());
  unlink(written.c_str());
  return error;
}

void SyncFolder(const std::filesystem::path& folder) {
  const OpenFile open(folder, O_RDONLY | O_DIRECTORY);
  if (open.IsOpen()) fsync(open.Descriptor());
}

}  // namespace koru
