#pragma once

#include <string>

#include "desktop/forms/FormWindow.h"

namespace koru {

/// How the widget of a control differs from the control's state: whether it can be used and seen, whether it
/// takes typing, what it shows. Empty when it does not.
[[nodiscard]] std::string WidgetDifference(FormWindow& window, const Control& control);

}  // namespace koru
