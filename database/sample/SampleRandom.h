#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace koru::sample {

/// A pseudo-random generator with the same results on every machine. It uses integer arithmetic only, because
/// the distributions of the standard library differ between implementations.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  /// From 0 to `count` - 1; `count` is at least 1.
  int Below(int count);
  /// From `low` to `high`, both inclusive.
  int Between(int low, int high) { return low + Below(high - low + 1); }
  /// True in one of `count` cases on average.
  bool OneIn(int count) { return Below(count) == 0; }

  /// `wanted` different places of a list of `size`, or all of them, in random order.
  std::vector<std::size_t> Choose(std::size_t size, std::size_t wanted);

 private:
  std::uint64_t Next();

  std::uint64_t state_;
};

}  // namespace koru::sample
