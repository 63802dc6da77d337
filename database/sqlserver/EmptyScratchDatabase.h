#pragma once

#include "platform/sql/Database.h"

namespace koru {

/// Makes the tables of a server's database empty and its numbers begin at 1, for a test or a scenario. In a
/// database without any of the suite's tables it makes them, and marks the database as one that is there for
/// this; throws InputError for one that has them and no such mark, so that nobody's data can go.
void EmptyScratchDatabase(Database& database);

}  // namespace koru
