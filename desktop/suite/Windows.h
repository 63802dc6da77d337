#pragma once

#include <filesystem>
#include <functional>

#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "platform/ports/Components.h"
#include "platform/sql/Database.h"

namespace koru {

class frmInvCounting;
class InvCountingWindow;

/// Registers the window of each form. `records` must outlive the screen's windows. What `extend` adds to each
/// counting window is destroyed with it.
void RegisterWindows(DesktopScreen& screen, SelectorRecords& records,
                     std::function<void(InvCountingWindow&, frmInvCounting&)> extend = {});

/// Registers the suite's sibling components with their windows. `components` and `databases` must
/// outlive them. `dataFolder` is the program's own folder, which has the report files.
void RegisterDesktopComponents(ComponentRegistry& components, DatabaseConnector& databases,
                               const std::filesystem::path& dataFolder);

}  // namespace koru
