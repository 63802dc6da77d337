#include "database/sqlserver/SqlServerSchema.h"

namespace koru {

void CreateSqlServerSchema(Database& database, const SchemaProgress& progress) {
  const std::vector<SqlText>& batches = SqlServerBatches();
  std::size_t done = 0;
  for (const SqlText& batch : batches) {
    database.Open(batch);
    ++done;
    if (progress) progress(done, batches.size());
  }
}

}  // namespace koru
