#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace koru {

/// Bounds the requests of each address in a second.
class RequestRate {
 public:
  explicit RequestRate(std::size_t limit) : limit_(limit) {}

  /// Counts a request; false when it is one too many.
  [[nodiscard]] bool Take(std::uint32_t address) {
    const auto now = std::chrono::steady_clock::now();
    if (now - since_ >= std::chrono::seconds(1)) {
      counts_.clear();
      since_ = now;
    }
    return ++counts_[address] <= limit_;
  }

 private:
  std::size_t limit_;
  std::chrono::steady_clock::time_point since_;
  std::unordered_map<std::uint32_t, std::size_t> counts_;
};

}  // namespace koru
