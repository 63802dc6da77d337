#pragma once

#include "platform/sql/Database.h"

namespace koru {

/// Empties the tables of a server's database and resets their counters to 1, for a test or a scenario.
/// Creates the tables in a database without any of the suite's tables, and marks it as a scratch database.
/// Throws InputError for a database that has the suite's tables but not the mark, and for one of the server's
/// own (RefuseSystemDatabase), so that real data is never deleted.
void EmptyScratchDatabase(Database& database);

}  // namespace koru
