#pragma once

#include <string>

#include "database/Sample.h"
#include "platform/sql/Database.h"

namespace koru {

/// Copies all rows of all tables of an embedded database file (UTF-8) into the empty tables that
/// CreateSqlServerSchema made, keys included, 500 rows a statement. A document's key that was assigned once
/// is never assigned again. `progress` gets 0 to 100 per cent and may be empty. Throws the DatabaseError of
/// the first statement that fails; the rows written before it remain.
void CopyRows(const std::string& file, Database& to, const SampleProgress& progress);

}  // namespace koru
