#pragma once

#include <memory>

#include "platform/sql/Database.h"

namespace koru {

/// Makes every database connection of the program: by the connection text's Provider, and logged where the
/// environment says so (LogSettingsOfEnvironment).
[[nodiscard]] std::unique_ptr<DatabaseConnector> ProgramConnector();

}  // namespace koru
