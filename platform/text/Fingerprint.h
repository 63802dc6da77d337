#pragma once

#include <cstdint>
#include <string_view>

namespace koru {

/// The fingerprint of the empty text.
inline constexpr std::uint64_t kEmptyFingerprint = 0xCBF29CE484222325;

/// Distinguishes texts that are compared after a program has ended: the same number in every build (64-bit
/// FNV-1a), practically never the same for two texts. `before` is the fingerprint of the texts before this
/// one. It is not cryptographic: it does not protect against deliberate changes.
[[nodiscard]] constexpr std::uint64_t Fingerprint(std::string_view text,
                                                  std::uint64_t before = kEmptyFingerprint) {
  constexpr std::uint64_t kPrime = 0x100000001B3;
  for (const char c : text) before = (before ^ static_cast<unsigned char>(c)) * kPrime;
  return before;
}

}  // namespace koru
