#pragma once

#include "platform/controls/DateBox.h"
#include "platform/controls/Selector.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The selected key, or NULL when nothing is selected.
[[nodiscard]] SqlText KeyOrNull(const Selector& selector);

/// The date of a box as a literal for a date column, and the Persian text for the text column beside it; NULL
/// when the box is empty.
[[nodiscard]] SqlText DateOrNull(const DateBox& box);
[[nodiscard]] SqlText PersianDateOrNull(const DateBox& box);

}  // namespace koru
