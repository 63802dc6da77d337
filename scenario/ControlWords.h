#pragma once

#include <optional>
#include <string>

#include "platform/controls/Control.h"
#include "scenario/StepKind.h"

namespace koru {

/// The content of a control as a scenario writes it: a quoted text, a key or `nothing`, a date or `empty`,
/// `on` or `off`. No value for a control without such content (a grid, a timer).
[[nodiscard]] std::optional<ScenarioWord> ContentOf(const Control& control);

/// Whether the control keeps a user from changing its content even while it is enabled. False for a kind of
/// control that cannot be locked.
[[nodiscard]] bool IsLocked(const Control& control);

/// The word as a scenario writes it.
[[nodiscard]] std::string Written(const ScenarioWord& word);

/// The control as a `T`; throws ScenarioFailure naming `kind` when it is not one.
template <class T>
[[nodiscard]] T& As(Control& control, const std::string& kind) {
  if (auto* const as = dynamic_cast<T*>(&control)) return *as;
  throw ScenarioFailure(control.Name() + " is no " + kind);
}

}  // namespace koru
