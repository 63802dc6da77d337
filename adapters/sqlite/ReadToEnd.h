#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// All rows of a statement. Also when one of its steps fails, it is ready to run again afterwards: a
/// statement that is kept must not stay half read, where it would hold its lock and its snapshot of the file.
/// Throws DatabaseError.
[[nodiscard]] Recordset ReadToEnd(SqliteStatement& statement);

}  // namespace koru
