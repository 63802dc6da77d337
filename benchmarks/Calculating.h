#pragma once

#include <string>
#include <vector>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// cmdCalc against a hand-written single pass, cmdCalc with fewer lines, and cmdGoods against cmdCalc, over
/// the full sample. Throws std::runtime_error if the calculation and the hand-written pass differ.
[[nodiscard]] std::vector<Workload> CalculatingWorkloads(const std::string& fullSample);

}  // namespace koru::bench
