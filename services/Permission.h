#pragma once

#include "services/SharedState.h"

namespace koru {

/// Whether the signed-in user holds the right; one who does not is told so. Throws DatabaseError.
[[nodiscard]] bool CheckPermission(SharedState& shared, FormPermission permission);

}  // namespace koru
