#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// Runs a statement and returns all its rows. Resets the statement, also if a step fails: a cached statement
/// that is not reset holds its lock and its view of the file. Throws DatabaseError.
[[nodiscard]] Recordset ReadToEnd(SqliteStatement& statement);

}  // namespace koru
