#pragma once

#include <string_view>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {

/// The number at the beginning of a text typed into a search box, in Latin, Persian or Arabic digits; 0 when
/// the text begins with none.
[[nodiscard]] inline double TypedNumber(std::string_view typed) {
  return Val(WithoutGroups(LatinDigits(typed), U"\u066C"));
}

}  // namespace koru
