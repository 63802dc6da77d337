#pragma once

#include <string_view>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {

/// The number at the beginning of what a person typed into a search box, also in Persian digits; 0 when there
/// is none.
[[nodiscard]] inline double TypedNumber(std::string_view typed) {
  return Val(WithoutGroups(LatinDigits(typed), U"\u066C"));
}

}  // namespace koru
