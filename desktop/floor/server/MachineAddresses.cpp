#include "desktop/floor/server/MachineAddresses.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace koru {
namespace {

/// Whether an address is one of those that shops give to their own machines (RFC 1918).
bool IsPrivate(std::uint32_t address) {
  return address >> 24U == 10U || address >> 20U == (172U << 4U | 1U) ||
         address >> 16U == (192U << 8U | 168U);
}

bool IsHardware(const std::string& interface) {
  std::error_code error;
  return std::filesystem::exists("/sys/class/net/" + interface + "/device", error);
}

/// The rank of an address of an interface, the likeliest first.
int RankOf(const std::string& interface, std::uint32_t address) {
  return (IsHardware(interface) ? 0 : 2) + (IsPrivate(address) ? 0 : 1);
}

std::string HostName() {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

}  // namespace

std::vector<std::string> MachineAddresses() {
  std::vector<std::pair<int, std::string>> ranked;
  ifaddrs* all = nullptr;
  if (getifaddrs(&all) == 0) {
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(all, &freeifaddrs);
    for (const ifaddrs* each = all; each != nullptr; each = each->ifa_next) {
      const bool serves = each->ifa_addr != nullptr && each->ifa_addr->sa_family == AF_INET &&
                          (each->ifa_flags & IFF_UP) != 0U && (each->ifa_flags & IFF_LOOPBACK) == 0U;
      if (!serves) continue;
      const in_addr address = reinterpret_cast<const sockaddr_in*>(each->ifa_addr)->sin_addr;
      std::array<char, INET_ADDRSTRLEN> text{};
      inet_ntop(AF_INET, &address, text.data(), text.size());
      ranked.emplace_back(RankOf(each->ifa_name, ntohl(address.s_addr)), text.data());
    }
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> addresses;
  addresses.reserve(ranked.size() + 1);
  for (auto& [rank, address] : ranked) addresses.push_back(std::move(address));
  if (addresses.empty()) addresses.emplace_back("127.0.0.1");
  if (std::string name = HostName(); !name.empty()) addresses.push_back(std::move(name));
  return addresses;
}

}  // namespace koru
