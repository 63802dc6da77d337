#pragma once

#include <optional>
#include <string_view>

#include "platform/controls/Control.h"

namespace koru {

/// Reads a key as a scenario names it: a letter, a digit, F1 to F12 or Enter, Escape, Tab, Delete, Insert,
/// Home, End, PageUp, PageDown, Up, Down, Left, Right, Space, Backspace, Plus, Minus, after Shift+, Ctrl+ and
/// Alt+. No value for any other text.
[[nodiscard]] std::optional<KeyPress> ParseKey(std::string_view name);

}  // namespace koru
