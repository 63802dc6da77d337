#pragma once

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

/// What the subsystems of the suite share: company, system parameters, report templates.
void WriteSuite(SqliteConnection& connection);

}  // namespace koru::sample
