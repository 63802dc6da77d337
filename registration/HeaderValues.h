#pragma once

#include "platform/controls/DateBox.h"
#include "platform/controls/Selector.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// What is selected, as a statement writes it: the key, or NULL when nothing is.
[[nodiscard]] SqlText KeyOrNull(const Selector& selector);

/// A date box as a statement writes it, and the text of its twin column: between apostrophes, or NULL when
/// the box is empty.
[[nodiscard]] SqlText DateOrNull(const DateBox& box);
[[nodiscard]] SqlText PersianDateOrNull(const DateBox& box);

}  // namespace koru
