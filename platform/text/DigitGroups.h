#pragma once

#include <string>
#include <string_view>

namespace koru {

/// A number with digits 0-9 and a point with `,` between the groups of three of its whole part: 1234567.5 as
/// 1,234,567.5. Any other text is returned unchanged.
[[nodiscard]] std::string WithGroups(std::string_view text);

}  // namespace koru
