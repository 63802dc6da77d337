#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace koru {

/// The bytes of a file. On failure `error` has the reason and the text has no meaning.
[[nodiscard]] std::string ReadWhole(const std::filesystem::path& file, std::error_code& error);

}  // namespace koru
