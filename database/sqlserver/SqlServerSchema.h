#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/Database.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The batches that make the suite's tables, indexes, views and procedure in an empty database on a server,
/// in their order; the folder's *.sql files, parted at their lines GO.
[[nodiscard]] const std::vector<SqlText>& SqlServerBatches();

/// The names of the tables that they make.
[[nodiscard]] std::vector<std::string> SuiteTables();

/// Whether the server numbers the rows of that table of the batches by itself (identity).
[[nodiscard]] bool IsNumberedByServer(std::string_view table);

/// Which tables, views and procedures of the batches a server's database has already, by name.
[[nodiscard]] std::vector<std::string> ExistingSuiteObjects(Database& database);

/// Told after each batch how many of all are done.
using SchemaProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Runs the batches one by one on a connection to an empty database of a server. `progress` may be empty.
/// Throws InputError with the names when something of that is there already, before anything is sent; nothing
/// that is there is changed. Throws the DatabaseError of the first batch that fails; what was made before it
/// stays.
void CreateSqlServerSchema(Database& database, const SchemaProgress& progress);

}  // namespace koru
