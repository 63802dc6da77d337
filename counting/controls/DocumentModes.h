#pragma once

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// Enables, disables and locks the form's commands and fields as the document mode requires. A mode that is
/// none of the four changes nothing.
void disablelockcomponent(DocumentMode mode, InvCountingControls& controls);

/// Sets the shared document mode and applies it to the form.
void SetDocumentMode(DocumentMode mode, InvCountingControls& controls, SharedState& shared);

}  // namespace koru
