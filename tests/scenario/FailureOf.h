#pragma once

#include <memory>
#include <string>

#include "scenario/FormDriver.h"
#include "scenario/ScenarioRunner.h"

namespace koru::test {

/// The failure of a scenario on the forms; "" when it passes.
inline std::string FailureOf(const std::string& text) {
  const Scenario scenario = ParseScenario(text, "s.scenario", ScenarioRunner::Patterns());
  const auto driver = [](ScenarioUser& user, DatabaseConnector& databases) -> std::unique_ptr<UiDriver> {
    return std::make_unique<FormDriver>(user, databases);
  };
  return ScenarioRunner(scenario, driver).Run();
}

}  // namespace koru::test
