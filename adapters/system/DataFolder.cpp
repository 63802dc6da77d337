#include "adapters/system/DataFolder.h"

#include <system_error>

#include "adapters/system/RunningProgram.h"

namespace koru {

std::filesystem::path DataFolderOf(const std::filesystem::path& program) {
  const std::filesystem::path data = std::filesystem::path("share") / "koru-counting";
  const std::filesystem::path folder = program.parent_path();
  std::error_code unknown;
  if (std::filesystem::is_directory(folder / data, unknown)) return folder / data;
  return folder.parent_path() / data;
}

std::filesystem::path DataFolder() { return DataFolderOf(RunningProgram()); }

}  // namespace koru
