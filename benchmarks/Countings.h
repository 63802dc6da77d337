#pragma once

#include <string>

namespace koru::bench {

// The countings of the full sample that are measured. The smaller ones contain every n-th line of the full
// one.
inline constexpr int kFullCounting = 1;
inline constexpr int kCountingOf8000 = 2;
inline constexpr int kCountingOf2000 = 3;
inline constexpr int kCountingOf100 = 4;
inline constexpr int kCountingOfNone = 5;
/// As many lines as the full one: 10,000 with a shortage and 10,000 with a surplus.
inline constexpr int kCountingToRegister = 6;
inline constexpr int kDifferences = 10'000;

/// Creates the full sample with these countings at `path` if the file does not exist; takes half a minute.
void MakeFullSample(const std::string& path);

/// Creates a database of 30,000 countings without lines at `path` if the file does not exist.
void MakeSearchDatabase(const std::string& path);
inline constexpr int kCountingsFound = 30'000;

}  // namespace koru::bench
