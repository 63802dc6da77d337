#pragma once

#include <string>

#include "desktop/forms/FormWindow.h"

namespace koru {

/// How the widget of a control differs from the control's state: enabled, visible, read-only, content. Empty
/// when it does not.
[[nodiscard]] std::string WidgetDifference(FormWindow& window, const Control& control);

}  // namespace koru
