#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/Database.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// The batches that create the suite's tables, indexes, views and procedure in an empty database on a server,
/// in order: the folder's *.sql files, separated at their GO lines.
[[nodiscard]] const std::vector<SqlText>& SqlServerBatches();

/// The names of the tables that the batches create.
[[nodiscard]] std::vector<std::string> SuiteTables();

/// Whether the table has an identity column in the batches.
[[nodiscard]] bool IsNumberedByServer(std::string_view table);

/// The names of the tables, views and procedures of the batches that already exist in `database`.
[[nodiscard]] std::vector<std::string> ExistingSuiteObjects(Database& database);

/// Throws InputError in a database of the server's own (master, model, msdb, tempdb), in which a connection
/// text without `Initial Catalog` can end up.
void RefuseSystemDatabase(Database& database);

/// Called after each batch with the number of finished batches.
using SchemaProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Runs the batches one by one on an empty database of a server. `progress` may be empty. If an object of the
/// batches already exists, throws InputError with the names before anything is sent, so existing objects are
/// never changed; in a database of the server's own as well (RefuseSystemDatabase). Throws the DatabaseError
/// of the first batch that fails; earlier batches are not undone.
void CreateSqlServerSchema(Database& database, const SchemaProgress& progress);

}  // namespace koru
