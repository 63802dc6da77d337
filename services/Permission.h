#pragma once

#include "services/SharedState.h"

namespace koru {

/// Whether the signed-in user holds the right; shows a message when not. Throws DatabaseError.
[[nodiscard]] bool CheckPermission(SharedState& shared, FormPermission permission);

}  // namespace koru
