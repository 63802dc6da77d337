#pragma once

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// Enables the command buttons that fit the document on the form: what the form's timer does at every tick.
/// The document mode alone sets the others (counting/controls/DocumentModes.h).
void RefreshCommands(DocumentMode mode, InvCountingControls& controls);

}  // namespace koru
