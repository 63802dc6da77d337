#pragma once

#include <functional>
#include <string>

#include "platform/text/Date.h"

namespace koru {

/// The day on which the sample company stands still, 29 Esfand 1404: nothing in the sample is younger. A host
/// that shows the sample may take it for today.
inline constexpr Date kSampleToday{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{20}};

/// Told how much of the work is done, in per cent from 0 to 100, never less than the time before.
using SampleProgress = std::function<void(int percent)>;

/// Makes a new database file at `path` with two years of a wholesaler's goods, documents and countings;
/// always the same rows. docs/sample-data.md lists who and what is in it. `progress` may be empty. A file
/// that exists already is left alone and gives InputError; when anything else fails (DatabaseError) no file
/// is left behind.
void CreateSample(const std::string& path, const SampleProgress& progress);

enum class SampleSize {
  Standard,  ///< the one above
  Medium,    ///< a tenth of Full
  Full  ///< 20 stores, 33,000 goods, 200,000 documents of three years with 2,000,000 lines, and a temporary
        ///< counting of 32,767 lines, the most that one can have; about 240 MB
};

/// Makes a sample of that size. The large ones show how the system bears its limits; they have the people and
/// units of the standard one and nothing else of it. All else as above.
void CreateSample(const std::string& path, SampleSize size, const SampleProgress& progress);

}  // namespace koru
