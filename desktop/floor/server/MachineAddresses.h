#pragma once

#include <string>
#include <vector>

namespace koru {

/// Names and addresses by which other devices of the network reach this machine, the likeliest first: its
/// IPv4 addresses, those of private networks and of interfaces of hardware before others, then its name.
/// 127.0.0.1 alone where there is no network.
[[nodiscard]] std::vector<std::string> MachineAddresses();

}  // namespace koru
