#pragma once

#include <string>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// Counts of a full counting from a workbook, which is written to `workbook`: read, planned and entered. The
/// limit only unpacks the sheet and reads its XML.
[[nodiscard]] Workload ImportWorkload(const std::string& fullSample, const std::string& workbook);

}  // namespace koru::bench
