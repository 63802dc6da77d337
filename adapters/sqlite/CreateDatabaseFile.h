#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// Makes a new database file at `path` (UTF-8): runs `schemaSql` (statements in SQLite's own dialect), then
/// `fill` when there is one, in one transaction. The file appears under its name only when all of it is done;
/// a failure leaves nothing behind. Throws InputError, naming the file, when something is already there or
/// the place cannot be written, and lets through the DatabaseError of a statement.
void CreateDatabaseFile(const std::string& path, std::string_view schemaSql,
                        const std::function<void(SqliteConnection&)>& fill = {});

}  // namespace koru
