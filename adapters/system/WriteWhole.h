#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace koru {

/// Writes `text` to a new file `written`, readable by the user of the machine alone, and gives it the name
/// `file`, whose file it replaces. The text is on the disk afterwards; a power cut meanwhile leaves the old
/// file or the new one. On failure the old file remains.
[[nodiscard]] std::error_code WriteWhole(const std::filesystem::path& file,
                                         const std::filesystem::path& written, std::string_view text);

/// Puts what was made, renamed and removed in the folder on the disk, as far as the file system does that.
void SyncFolder(const std::filesystem::path& folder);

}  // namespace koru
