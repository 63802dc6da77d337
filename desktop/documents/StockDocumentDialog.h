#pragma once

#include "siblings/documents/SuiteDocument.h"

namespace koru {

/// Shows a receipt or dispatch with its lines in a modal window above the active one (see ShowDocument).
/// Failures while the window is open are reported in it.
void ShowInDialog(OpenedDocument opened);

}  // namespace koru
