#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The hosts for which requests are served: those of the machine alone, so that a page of another site whose
/// name is made to mean this machine (DNS rebinding) reaches nothing.
class AllowedHosts {
 public:
  /// Names and addresses of the machine; 127.0.0.1 and localhost are allowed besides.
  explicit AllowedHosts(const std::vector<std::string>& addresses) { SetNames(addresses); }

  /// Replaces the names and addresses.
  void SetNames(const std::vector<std::string>& addresses);
  /// Devices reach the machine by this port, too.
  void AddPort(std::uint16_t port) { ports_.insert(std::to_string(port)); }
  /// Whether the header field Host names the machine, alone or with one of the ports.
  [[nodiscard]] bool Contain(std::string_view host) const;

 private:
  std::set<std::string> names_;  ///< in small letters
  std::set<std::string> ports_;
};

}  // namespace koru
