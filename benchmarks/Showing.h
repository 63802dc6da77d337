#pragma once

#include <string>
#include <vector>

#include "benchmarks/Workload.h"

namespace koru::bench {

/// The workloads of the visible form with a full counting: loading, one edit, sorting, scrolling and the
/// workbook, which is written to the folder `workbooks`.
[[nodiscard]] std::vector<Workload> ShowingWorkloads(const std::string& fullSample,
                                                     const std::string& workbooks);

/// A counting search that finds 30,000 countings.
[[nodiscard]] Workload SearchWorkload(const std::string& searchDatabase);

}  // namespace koru::bench
