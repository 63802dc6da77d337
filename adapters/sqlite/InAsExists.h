#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// Reads `X in (select key from T where ...)` as `exists (select 1 from T where T.key=outer.X and (...))`.
/// SQLite builds the list of an `in` anew for every statement, however few rows are then looked up in it: the
/// sum of one good's movements would read all documents of the store. By the key it looks at the documents of
/// that good alone.
///
/// It is done only where the rows found are the same and the key makes it pay (ReadInSelection).
void ReadInAsExists(StatementTokens& tokens, SqliteConnection& connection);

}  // namespace koru
