#include "floor/AccessCodes.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <utility>

namespace koru {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr std::size_t kCharacters = 22;  ///< 128 bits, 6 in a character
constexpr unsigned kBitsPerCharacter = 6;
constexpr unsigned kBits = 128;

std::string NewCode(const RandomBits& random) {
  std::string code;
  std::uint64_t bits = 0;
  unsigned available = 0;
  unsigned drawn = 0;
  while (code.size() < kCharacters) {
    if (available < kBitsPerCharacter && drawn < kBits) {
      bits |= static_cast<std::uint64_t>(random()) << available;
      available += 32;
      drawn += 32;
    }
    code += kAlphabet[bits % kAlphabet.size()];
    bits >>= kBitsPerCharacter;
    available -= std::min(available, kBitsPerCharacter);
  }
  return code;
}

/// The time that it takes says nothing about where two texts of the same length differ.
bool AreEqual(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  unsigned char difference = 0;
  for (std::size_t at = 0; at < a.size(); ++at) {
    difference = static_cast<unsigned char>(difference | static_cast<unsigned char>(a[at] ^ b[at]));
  }
  return difference == 0;
}

}  // namespace

RandomBits SystemRandomBits() {
  return
      [device = std::make_shared<std::random_device>()] { return static_cast<std::uint32_t>((*device)()); };
}

AccessCodes::AccessCodes(RandomBits random) : random_(std::move(random)) {
  for (std::string& code : codes_) code = NewCode(random_);
}

void AccessCodes::Renew(int count) { codes_.at(static_cast<std::size_t>(count - 1)) = NewCode(random_); }

std::optional<int> AccessCodes::CountOf(std::string_view code) const {
  std::optional<int> found;
  for (int count = 1; count <= kFloorCounts; ++count) {
    if (AreEqual(code, Of(count))) found = count;
  }
  return found;
}

bool IsBase64Url(std::string_view text) {
  return text.find_first_not_of(kAlphabet) == std::string_view::npos;
}

bool IsAccessCode(std::string_view text) { return text.size() == kCharacters && IsBase64Url(text); }

}  // namespace koru
