#pragma once

#include <string>
#include <vector>

namespace koru {

/// The names of the ODBC drivers that this machine has, in the driver manager's order.
[[nodiscard]] std::vector<std::string> InstalledDrivers();

}  // namespace koru
