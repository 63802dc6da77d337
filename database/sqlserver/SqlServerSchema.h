#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "platform/Database.h"
#include "platform/SqlText.h"

namespace koru {

/// The batches that make the suite's tables, indexes, views and procedure in an empty database on a server,
/// in their order; the folder's *.sql files, parted at their lines GO.
[[nodiscard]] const std::vector<SqlText>& SqlServerBatches();

/// Told after each batch how many of all are done.
using SchemaProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Runs the batches one by one on a connection to an empty database of a server. `progress` may be empty.
/// Throws the DatabaseError of the first batch that fails, such as that of a table that is there already
/// (2714): nothing that is there is changed, what was made before it stays.
void CreateSqlServerSchema(Database& database, const SchemaProgress& progress);

}  // namespace koru
