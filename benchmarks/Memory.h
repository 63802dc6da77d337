#pragma once

#include <string>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// What the program's resident memory grows by when it opens the full counting and draws it, beside all texts
/// of its cells. Measured in a program of its own, `program`, which has opened and drawn a counting of
/// 100 lines before, so that what every window needs is there already.
[[nodiscard]] Size MemoryOfFullCounting(const std::string& program, const std::string& fullSample);

/// What that program does: prints the growth and the size of the texts, in bytes.
void PrintMemoryGrowth(const std::string& fullSample);

}  // namespace koru::bench
