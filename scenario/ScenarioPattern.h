#pragma once

#include <string_view>
#include <vector>

#include "scenario/Scenario.h"

namespace koru {

/// Whether the words of a step match a pattern (see ParseScenario).
[[nodiscard]] bool MatchesPattern(std::string_view pattern, const std::vector<ScenarioWord>& words);

/// Whether `|` lines may follow a step of the pattern.
[[nodiscard]] bool TakesRows(std::string_view pattern);

/// The words of a pattern without its ROWS.
[[nodiscard]] std::vector<std::string_view> PatternWords(std::string_view pattern);

}  // namespace koru
