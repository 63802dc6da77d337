#pragma once

#include <cstdint>
#include <string>

#include "services/dteInvCounting.h"

namespace koru {

/// The full name of a user of the suite; empty when the suite does not know the user. Throws DatabaseError.
[[nodiscard]] std::string FullNameOf(std::int32_t userID, dteInvCounting& data);

}  // namespace koru
