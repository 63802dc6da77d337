#include "database/sqlserver/EmptyScratchDatabase.h"

#include "database/sqlserver/SqlServerSchema.h"

namespace koru {
namespace {

bool HasMark(Database& database) {
  return database
             .Open(SqlText("select name as Name from sys.objects where schema_id=schema_id() and "
                           "name='tblKoruScratch'"))
             .RecordCount() > 0;
}

}  // namespace

void EmptyScratchDatabase(Database& database) {
  RefuseSystemDatabase(database);
  if (!HasMark(database)) {
    CreateSqlServerSchema(database, {});
    database.Open(SqlText("create table tblKoruScratch (ID int null)"));
    return;
  }
  for (const std::string& table : SuiteTables()) {
    database.Open(SqlText("truncate table ") + SqlName(table));
  }
}

}  // namespace koru
