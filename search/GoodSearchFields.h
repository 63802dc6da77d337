#pragma once

#include "search/GoodSearchControls.h"

namespace koru {

/// Makes the fields of the goods search behave: a text is selected as a whole when its box gets the keyboard,
/// prices and quantities become plain numbers when it leaves, Delete empties a list, the right mouse button
/// shows the menu. Called once for a form.
void ConnectFields(GoodSearchControls& controls);

/// Brings the menu and the goods type's button into line with the form: what its timer does at every tick.
void RefreshEntries(GoodSearchControls& controls);

}  // namespace koru
