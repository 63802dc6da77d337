#pragma once

#include <optional>
#include <string>

class QWidget;

namespace koru {

/// What the widget of that object name in the window shows: a text; of a table, the row (from 1) and the
/// column (from 0) of its current cell; of a page of the manual, its file and anchor. No value where the
/// window has no visible widget of that name.
[[nodiscard]] std::optional<std::string> TextOfPart(const QWidget& window, const std::string& name);

}  // namespace koru
