#pragma once

#include <string>

namespace koru::bench {

// The countings of the full sample that are measured. Those with fewer lines hold every so many-th line of
// the full one.
inline constexpr int kFullCounting = 1;
inline constexpr int kCountingOf8000 = 2;
inline constexpr int kCountingOf2000 = 3;
inline constexpr int kCountingOf100 = 4;
inline constexpr int kCountingOfNone = 5;
/// As many lines as the full one; 10,000 are short and 10,000 have a surplus.
inline constexpr int kCountingToRegister = 6;
inline constexpr int kDifferences = 10'000;

/// The full sample with these countings at `path`, made when it is not there; takes half a minute then.
void MakeFullSample(const std::string& path);

/// A database of 30,000 countings without lines at `path`, made when it is not there.
void MakeSearchDatabase(const std::string& path);
inline constexpr int kCountingsFound = 30'000;

}  // namespace koru::bench
