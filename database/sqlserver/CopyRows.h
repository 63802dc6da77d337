#pragma once

#include <string>

#include "database/Sample.h"
#include "platform/sql/Database.h"

namespace koru {

/// What the rows are copied into.
enum class RowsTarget {
  Server,       ///< the tables that CreateSqlServerSchema made
  EmbeddedFile  ///< those of an embedded database
};

/// Copies all rows of all tables of an embedded database file (UTF-8) into the empty tables of the same names
/// behind `to`, keys included, some hundred rows a statement; a document's key that was given there is never
/// given again here either. `progress` is told per cent from 0 to 100 and may be empty. Throws the
/// DatabaseError of the first statement that fails; what was written before it stays.
void CopyRows(const std::string& file, Database& to, RowsTarget target, const SampleProgress& progress);

}  // namespace koru
