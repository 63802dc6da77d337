#include "scenario/StepKind.h"

namespace koru {

std::span<const StepKind> FloorSteps() { return {}; }

}  // namespace koru
