#pragma once

#include <string>

namespace koru::bench {

inline constexpr int kCountingsFound = 30'000;

/// A database with so many countings without lines at `path`, made when it is not there.
void MakeSearchDatabase(const std::string& path);

}  // namespace koru::bench
