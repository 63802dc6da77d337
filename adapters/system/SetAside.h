#pragma once

#include <filesystem>
#include <system_error>

namespace koru {

/// Renames a damaged file to `<name>.damaged`, or `.damaged-2` and so on where the name is taken, and returns
/// its new name. Sets `error` when that fails.
[[nodiscard]] std::filesystem::path SetAside(const std::filesystem::path& file, std::error_code& error);

}  // namespace koru
