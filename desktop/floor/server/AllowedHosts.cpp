#include "desktop/floor/server/AllowedHosts.h"

#include <algorithm>

namespace koru {
namespace {

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return small;
}

}  // namespace

void AllowedHosts::SetNames(const std::vector<std::string>& addresses) {
  names_ = {"127.0.0.1", "localhost"};
  for (const std::string& address : addresses) names_.insert(SmallLetters(address));
}

bool AllowedHosts::Contain(std::string_view host) const {
  const auto colon = host.find(':');
  const bool hasName = names_.contains(SmallLetters(host.substr(0, colon)));
  return hasName && (colon == std::string_view::npos || ports_.contains(std::string(host.substr(colon + 1))));
}

}  // namespace koru
