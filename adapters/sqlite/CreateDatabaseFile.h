#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// Makes a new database file at `path` (UTF-8): runs `schemaSql` (statements in SQLite's own dialect), then
/// `fill` if it is not empty, in one transaction. The file gets its name only when it is complete; a failure
/// leaves no file. Throws InputError, naming the file, if the name is taken or the folder cannot be written;
/// the DatabaseError of a statement propagates.
void CreateDatabaseFile(const std::string& path, std::string_view schemaSql,
                        const std::function<void(SqliteConnection&)>& fill = {});

}  // namespace koru
