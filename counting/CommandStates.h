#pragma once

#include "counting/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// Enables and disables the form's commands and fields by the document mode; a mode that is none of
/// the four sets nothing.
void disablelockcomponent(DocumentMode mode, InvCountingControls& controls);

/// Brings the command buttons into line with the document: what the form's timer does at every tick.
void RefreshCommands(DocumentMode mode, InvCountingControls& controls);

}  // namespace koru
