#pragma once

namespace koru {

/// Runs the program: reads the command line, does what it asks for, and answers the exit code (0 all went
/// well, 1 a scenario or a check failed, 2 something given could not be used).
[[nodiscard]] int RunProgram(int argc, char** argv);

}  // namespace koru
