#include "scenario/RunScenarios.h"

#include <filesystem>

#include "scenario/Scenario.h"
#include "scenario/ScenarioRunner.h"

namespace koru {

bool RunScenarios(const std::vector<std::string>& files, const DriverMaker& makeDriver,
                  const TableReader& readTable, const std::optional<std::string>& server,
                  std::ostream& report) {
  std::vector<Scenario> scenarios;
  scenarios.reserve(files.size());
  for (const std::string& file : files) scenarios.push_back(ReadScenario(file, ScenarioRunner::Patterns()));
  std::size_t failed = 0;
  for (const Scenario& scenario : scenarios) {
    const std::string failure = ScenarioRunner(scenario, makeDriver, readTable, server).Run();
    if (failure.empty()) {
      const std::string name = std::filesystem::path(scenario.file).stem().string();
      report << "ok  " << name << "  " << scenario.steps.size() << " steps" << std::endl;
    } else {
      report << "FAILED " << failure << std::endl;
      ++failed;
    }
  }
  report << scenarios.size() - failed << " passed, " << failed << " failed" << std::endl;
  return failed == 0;
}

}  // namespace koru
