#pragma once

#include <optional>
#include <string>

#include "platform/controls/Control.h"
#include "scenario/StepKind.h"

namespace koru {

/// What a control holds, as a scenario writes it: a quoted text, a key or `nothing`, a day or `empty`, `on`
/// or `off`. Empty for a control that holds nothing of that kind (a grid, a timer).
[[nodiscard]] std::optional<ScenarioWord> ContentOf(const Control& control);

/// Whether a person could change the control's content, were it enabled; a control that cannot be locked is
/// not.
[[nodiscard]] bool IsLocked(const Control& control);

/// A word as it stands in a scenario.
[[nodiscard]] std::string Written(const ScenarioWord& word);

/// The control as a `T`; ScenarioFailure with the name of the kind when it is none.
template <class T>
[[nodiscard]] T& As(Control& control, const std::string& kind) {
  if (auto* const as = dynamic_cast<T*>(&control)) return *as;
  throw ScenarioFailure(control.Name() + " is no " + kind);
}

}  // namespace koru
