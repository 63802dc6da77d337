#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace koru::fuzz {

/// Ends the program where a rule does not hold, so that the fuzzer keeps the input that breaks it.
inline void Require(bool holds, const char* rule) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "does not hold: %s\n", rule));
  std::abort();
}

/// The input of a target as text.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
}

}  // namespace koru::fuzz

/// What each target defines. `data` is one input of `size` bytes; the result is always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
