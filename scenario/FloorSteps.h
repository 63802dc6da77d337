#pragma once

#include <cstddef>
#include <span>

#include "scenario/ScenarioFloor.h"
#include "scenario/StepKind.h"

namespace koru {

/// The floor of the scenario, which exists from its first use.
[[nodiscard]] ScenarioFloor& FloorOf(ScenarioWorld& world);

/// The word at `index` as a count. Throws ScenarioFailure when it is none.
[[nodiscard]] int CountIn(const ScenarioStep& step, std::size_t index);

/// What the desk and the devices show; a part of FloorSteps.
[[nodiscard]] std::span<const StepKind> FloorExpectations();

}  // namespace koru
