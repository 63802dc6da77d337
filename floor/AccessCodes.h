#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "floor/FloorFigures.h"

namespace koru {

/// 32 random bits that nobody can foresee.
using RandomBits = std::function<std::uint32_t()>;

/// The system's own generator, by std::random_device.
[[nodiscard]] RandomBits SystemRandomBits();

/// What a device shows to take part in one of the three counts: 128 random bits as 22 characters of base64url
/// (A-Z a-z 0-9 - _), a code for each count. It is all that keeps others out: it is compared in constant
/// time.
class AccessCodes {
 public:
  using Codes = std::array<std::string, kFloorCounts>;

  /// Three new codes.
  explicit AccessCodes(RandomBits random);
  /// Those of a session that is continued.
  AccessCodes(RandomBits random, Codes codes) : random_(std::move(random)), codes_(std::move(codes)) {}

  /// The code of a count, 1 to kFloorCounts.
  [[nodiscard]] const std::string& Of(int count) const {
    return codes_.at(static_cast<std::size_t>(count - 1));
  }
  /// Replaces the code of a count: devices with the old one are out.
  void Renew(int count);
  /// The count that a code admits to; nothing for any other text.
  [[nodiscard]] std::optional<int> CountOf(std::string_view code) const;

 private:
  RandomBits random_;
  Codes codes_;
};

/// Whether the text has characters of base64url alone.
[[nodiscard]] bool IsBase64Url(std::string_view text);
/// Whether the text has the form of a code.
[[nodiscard]] bool IsAccessCode(std::string_view text);

}  // namespace koru
