#pragma once

#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// The shape of a statement (StatementShape::text), written in the suite's server's dialect, as SQLite
/// understands it; the literals are its parameters from 1 on. Translated are `isnull(a,b)`, `delete` without
/// `from`, `select top n`, `in` selections (ReadInAsExists) and comparisons of barcodes (UseTrimmedIndex). A
/// text that is compared with an expression is given the collation KORU, which in SQLite only plain columns
/// have from their table. Throws DatabaseError for `order by` the number of a column.
[[nodiscard]] std::string TranslateShape(std::string_view shape, SqliteConnection& connection);

}  // namespace koru
