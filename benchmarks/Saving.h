#pragma once

#include <string>
#include <vector>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// Temporary save and registration beside one transaction with prepared inserts of the same rows.
/// `fullSample` is written to. Throws std::runtime_error when both do not write the same.
[[nodiscard]] std::vector<Workload> SavingWorkloads(const std::string& fullSample);

}  // namespace koru::bench
