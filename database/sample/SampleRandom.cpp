#include "database/sample/SampleRandom.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace koru::sample {

// A counter stepped by the golden ratio of 2^64, its bits mixed by two multiplications.
std::uint64_t Random::Next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t bits = state_;
  bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31U);
}

int Random::Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }

std::vector<std::size_t> Random::Choose(std::size_t size, std::size_t wanted) {
  std::vector<std::size_t> places(size);
  std::iota(places.begin(), places.end(), std::size_t{0});
  wanted = std::min(wanted, size);
  for (std::size_t i = 0; i < wanted; ++i) {
    const auto rest = static_cast<int>(size - i);
    std::swap(places[i], places[i + static_cast<std::size_t>(Below(rest))]);
  }
  places.resize(wanted);
  return places;
}

}  // namespace koru::sample
