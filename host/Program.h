#pragma once

namespace koru {

/// Runs koru-counting and returns its exit code: 0 success, 1 a check failed, 2 an argument, a file or a
/// database cannot be used.
[[nodiscard]] int RunProgram(int argc, char** argv);

}  // namespace koru
