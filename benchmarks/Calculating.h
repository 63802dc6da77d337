#pragma once

#include <string>
#include <vector>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// cmdCalc beside one pass by hand, cmdCalc of fewer lines and cmdGoods beside cmdCalc, over the full sample.
/// Throws std::runtime_error when the calculation and the pass by hand do not give the same.
[[nodiscard]] std::vector<Workload> CalculatingWorkloads(const std::string& fullSample);

}  // namespace koru::bench
