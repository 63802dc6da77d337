#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// A procedure call in readable form, `{? = CALL name( 7, 806) }`: what Database::Call sends, with the
/// values.
[[nodiscard]] std::string CallText(std::string_view procedure, const std::vector<std::int32_t>& parameters);

}  // namespace koru
