#pragma once

#include <functional>
#include <string>

#include "platform/text/Date.h"

namespace koru {

/// The current date of the sample, 29 Esfand 1404: no data has a later date. A host that shows the sample may
/// use it as today.
inline constexpr Date kSampleToday{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{20}};

/// Called with the progress in per cent, 0 to 100, never decreasing.
using SampleProgress = std::function<void(int percent)>;

/// Creates a database file at `path` with two years of a wholesaler's goods, documents and countings; the
/// rows are always the same. docs/sample-data.md lists them. `progress` may be empty. Throws InputError if
/// the file exists, without changing it, and DatabaseError for other failures, after which no file remains.
void CreateSample(const std::string& path, const SampleProgress& progress);

enum class SampleSize {
  Standard,  ///< the sample of the function above
  Medium,    ///< a tenth of Full
  Full  ///< 20 stores, 33,000 goods, 200,000 documents of three years with 2,000,000 lines, and a temporary
        ///< counting of 32,767 lines, the maximum; about 300 MB
};

/// Creates a sample of the given size; otherwise as above. The larger ones are for measurements at the
/// system's limits; they share only users and units with the standard sample.
void CreateSample(const std::string& path, SampleSize size, const SampleProgress& progress);

}  // namespace koru
