#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "scenario/ScenarioWorld.h"

namespace koru {

/// Runs scenarios one after the other, each with a driver and a database of its own: an embedded file, or the
/// scratch database of the server with the connection text `server`. `readTable` reads the files that the
/// user chooses. Reports one line per scenario and a last line with the counts. True when all passed. Every
/// scenario is read before the first runs: throws InputError for one that cannot be read.
[[nodiscard]] bool RunScenarios(const std::vector<std::string>& files, const DriverMaker& makeDriver,
                                const TableReader& readTable, const std::optional<std::string>& server,
                                std::ostream& report);

}  // namespace koru
