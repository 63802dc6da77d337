#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "scenario/ScenarioWorld.h"

namespace koru {

/// Plays scenarios one after the other, each on a stage and a database of its own. Reports one line a
/// scenario and a last line with the counts. True when all passed. Every scenario is read before the first is
/// played: throws InputError for one that cannot be read.
[[nodiscard]] bool PlayScenarios(const std::vector<std::string>& files, const DriverMaker& makeDriver,
                                 const ScratchRoute& route, std::ostream& report);

}  // namespace koru
