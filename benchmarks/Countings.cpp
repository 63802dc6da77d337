#include "benchmarks/Countings.h"

#include <filesystem>
#include <iostream>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "benchmarks/Limits.h"
#include "database/Sample.h"
#include "database/Schema.h"

namespace koru::bench {
namespace {

constexpr const char* kLineColumns =
    "Barcode, RowNumber, ScaleID, FirstCounting, SecondCounting, ThirdCounting, AcceptedCounting, "
    "SystemCounting, ContradictionCounting, BaseValue";

/// Copies the header of the full counting and those of its lines for which `which` is true.
void CopyCounting(const PlainConnection& connection, int counting, const std::string& which) {
  const std::string id = std::to_string(counting);
  connection.Execute(
      "insert into tblInventoryCounting (ID, InventoryID, CreatorID, CreateDate, FarsiCreateDate, FromDate, "
      "FarsiFromDate, ToDate, FarsiToDate) select " +
      id +
      ", InventoryID, CreatorID, CreateDate, FarsiCreateDate, FromDate, FarsiFromDate, ToDate, FarsiToDate "
      "from tblInventoryCounting where ID = 1");
  connection.Execute("insert into tblInventoryCountingDetail (CountingID, " + std::string(kLineColumns) +
                     ") select " + id + ", " + kLineColumns +
                     " from tblInventoryCountingDetail where CountingID = 1 and " + which +
                     " order by RowNumber");
}

void AddCountings(const PlainConnection& connection) {
  connection.Execute("begin");
  CopyCounting(connection, kCountingOf8000, "RowNumber <= 8000");
  CopyCounting(connection, kCountingOf2000, "RowNumber <= 2000");
  CopyCounting(connection, kCountingOf100, "RowNumber <= 100");
  CopyCounting(connection, kCountingOfNone, "0");
  CopyCounting(connection, kCountingToRegister, "1");
  const std::string differences = std::to_string(kDifferences);
  connection.Execute(
      "update tblInventoryCountingDetail set SystemCounting = abs(SystemCounting) + 5,"
      " ContradictionCounting = case when RowNumber <= " +
      differences + " then -3.25 when RowNumber <= 2 * " + differences +
      " then 2.5 end where CountingID = 6;"
      "update tblInventoryCountingDetail set AcceptedCounting = SystemCounting +"
      " ifnull(ContradictionCounting, 0) where CountingID = 6");
  connection.Execute("commit");
}

}  // namespace

void MakeFullSample(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  std::cout << "Making the full sample (once)" << std::endl;
  const std::string half = path + ".half";
  std::filesystem::remove(half);
  CreateSample(half, SampleSize::Full,
               [](int percent) { std::cout << '\r' << percent << " %" << std::flush; });
  std::cout << '\n';
  AddCountings(PlainConnection(half));
  std::filesystem::rename(half, path);
}

void MakeSearchDatabase(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  CreateDatabaseFile(path, EmbeddedSchema(), [](SqliteConnection& connection) {
    connection.Execute(
        "insert into tblInventory (ID, Name) values (1, 'انبار مركزي'), (2, 'سردخانه');"
        "insert into tblUser (ID, FullName) values (1, 'زهرا كريمي'), (2, 'حسين رضايي'), (3, 'مريم احمدي');"
        "insert into tblPelinUserPermission (UserID, FormPermissionID) values (1, 80604);"
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
