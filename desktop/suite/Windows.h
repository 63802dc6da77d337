#pragma once

#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "platform/ports/Components.h"
#include "platform/sql/Database.h"

namespace koru {

/// Registers the window of each form. `records` must outlive the screen's windows.
void RegisterWindows(DesktopScreen& screen, SelectorRecords& records);

/// Registers the suite's sibling components with their windows. `components` and `databases` must
/// outlive them.
void RegisterDesktopComponents(ComponentRegistry& components, DatabaseConnector& databases);

}  // namespace koru
