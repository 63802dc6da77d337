#include "benchmarks/SearchDatabase.h"

#include <filesystem>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Schema.h"

namespace koru::bench {

void MakeSearchDatabase(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  CreateDatabaseFile(path, EmbeddedSchema(), [](SqliteConnection& connection) {
    connection.Execute(
        "insert into tblInventory (ID, Name) values (1, 'انبار مركزي'), (2, 'سردخانه');"
        "insert into tblUser (ID, FullName) values (1, 'زهرا كريمي'), (2, 'حسين رضايي'), (3, 'مريم احمدي');"
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
        std::to_string(kCountingsFound) +
        ") insert into tblInventoryCounting (ID, Code, ManualCode, InventoryID, CreatorID, CreateDate, "
        "FarsiCreateDate,"
        " FromDate, FarsiFromDate, ToDate, FarsiToDate, CounterEmployeeID1, CounterEmployeeID2, "
        "CounterConfirmerID)"
        " select i, case when i % 4 then i end, 'M-' || i, i % 2 + 1, i % 3 + 1, '2025-04-01', '1404/01/12',"
        " '2025-03-21', '1404/01/01', '2026-03-20', '1404/12/29', 1, 2, 3 from n");
  });
}

}  // namespace koru::bench
