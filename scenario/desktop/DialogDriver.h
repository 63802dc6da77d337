#pragma once

#include <functional>

#include "scenario/UiDriver.h"

class QWidget;

namespace koru {

/// Lets the user use and close a modal dialog of the suite: the goods picker, a receipt or dispatch, or a
/// message. `run` runs input that may show another dialog (see UiDriver::Run).
void UseDialog(QWidget& dialog, ScenarioUser& user,
               const std::function<void(const std::function<void()>&)>& run);

}  // namespace koru
