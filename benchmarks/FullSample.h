#pragma once

#include <string>

namespace koru::bench {

/// The full sample at `path`, made when it is not there; takes about a minute then.
void MakeFullSample(const std::string& path);

}  // namespace koru::bench
