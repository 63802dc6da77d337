#pragma once

#include <string>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// The growth of the program's resident memory when it opens and draws the full counting, against the size of
/// all its cell texts. Measured in a separate process, `program`, which has drawn a counting of 100 lines
/// before, so that memory common to all windows is already allocated.
[[nodiscard]] Size MemoryOfFullCounting(const std::string& program, const std::string& fullSample);

/// The work of that process: prints the growth and the size of the texts in bytes.
void PrintMemoryGrowth(const std::string& fullSample);

}  // namespace koru::bench
