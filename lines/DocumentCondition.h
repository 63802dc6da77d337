#pragma once

#include <cstdint>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The condition on a receipt or a dispatch that its quantities belong to the book stock: it is registered,
/// in the store or in a child of it, and between the dates in the header; an empty date sets no bound. Its
/// two last parentheses are left open. `invID` is the store; -1 (none chosen) has no documents.
[[nodiscard]] SqlText DocumentCondition(const InvCountingControls& controls, std::int32_t invID);

}  // namespace koru
