#pragma once

#include "search/GoodSearchControls.h"

namespace koru {

/// Connects the events of the goods search's fields: a box that gets the keyboard focus selects its text,
/// prices and quantities become plain numbers when their boxes lose it, Delete empties a list, and the right
/// mouse button shows the menu. Called once for a form.
void ConnectFields(GoodSearchControls& controls);

/// Enables the menu entries and the goods type's button that fit the form: what its timer does at every tick.
void RefreshEntries(GoodSearchControls& controls);

}  // namespace koru
