#pragma once

namespace koru {

/// Runs koru-scenario and returns its exit code: 0 all scenarios passed, 1 one failed, 2 an argument or a
/// file cannot be used.
[[nodiscard]] int RunScenarioProgram(int argc, char** argv);

}  // namespace koru
