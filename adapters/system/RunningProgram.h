#pragma once

#include <filesystem>

namespace koru {

/// The file of the running program; empty where the system does not say.
[[nodiscard]] std::filesystem::path RunningProgram();

}  // namespace koru
