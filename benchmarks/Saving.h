#pragma once

#include <string>
#include <vector>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// Temporary save and registration against one transaction with prepared inserts of the same rows. Writes to
/// `fullSample`. Throws std::runtime_error if the two write different rows.
[[nodiscard]] std::vector<Workload> SavingWorkloads(const std::string& fullSample);

}  // namespace koru::bench
