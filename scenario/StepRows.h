#pragma once

#include <string>
#include <vector>

#include "scenario/Scenario.h"

namespace koru {

/// The words of `|` lines.
using StepRows = std::vector<std::vector<ScenarioWord>>;

/// Throws the failure of an expectation at the first row that differs; `what` names a row.
void RowsMustBe(const StepRows& expected, const StepRows& found, const std::string& what);

}  // namespace koru
