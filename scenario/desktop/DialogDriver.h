#pragma once

#include <functional>

#include "scenario/UiDriver.h"

class QWidget;

namespace koru {

/// Lets the person use a dialog of the suite that is shown modally, and leave it: the goods picker, a receipt
/// or dispatch, or else a message. `run` does a gesture that may show another dialog (see UiDriver::Run).
void UseDialog(QWidget& dialog, ScenarioUser& user,
               const std::function<void(const std::function<void()>&)>& run);

}  // namespace koru
