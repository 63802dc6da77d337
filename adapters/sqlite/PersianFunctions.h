#pragma once

struct sqlite3;

namespace koru {

/// Registers with a connection the collation KORU (the order and equality of ComparePersian) and a `like`
/// that compares the same way, with the wildcards of the suite's server. Throws DatabaseError.
void RegisterPersianFunctions(sqlite3* connection);

}  // namespace koru
