#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// Reads `(X=n or X in (select ...))` as `(X in (select n union all select ...))`, where X is a column of
/// whole numbers of `table`, the only one that is read there. The rows are the same; SQLite finds them in one
/// walk through an index on X instead of two whose rows it has to put together.
void ReadOrAsIn(StatementTokens& tokens, const std::string& table, const SqliteConnection& connection);

}  // namespace koru
