#include "database/sample/SampleStock.h"

#include "database/sample/SampleRows.h"
#include "platform/text/Numbers.h"

namespace koru::sample {
namespace {

/// The calculation rounds the book stock to as many.
constexpr int kStockDecimals = 6;

std::string RegisteredLines(const std::string& kind) {
  return " from tblInventory" + kind + "Detail join tblInventory" + kind + " on ID = " + kind +
         "ID where Code is not null and (InventoryID = ?1 or ?1 = 0) and ReceiveDate between ?2 and ?3";
}

// The trimmed barcode finds the lines by their index, as it does for the statements of the system.
std::optional<double> LatestValue(SqliteConnection& connection, const std::string& kind, int store,
                                  const std::string& barcode, const Period& period) {
  SqliteStatement select =
      connection.Prepare("select Value" + RegisteredLines(kind) +
                         " and ltrim(rtrim(Barcode)) = ?4 collate KORU and +Barcode = "
                         "?4 and Value > 0 order by ReceiveDate desc, ID desc, tblInventory" +
                         kind + "Detail.rowid desc limit 1");
  select.Bind(1, store);
  select.Bind(2, IsoText(period.from));
  select.Bind(3, IsoText(period.to));
  select.Bind(4, barcode);
  return select.Step() ? std::optional(select.Real(0)) : std::nullopt;
}

}  // namespace

std::map<std::string, double> BookStock(SqliteConnection& connection, int store, const Period& period) {
  SqliteStatement select =
      connection.Prepare("select trim(Barcode), ifnull(Qty, 0)" + RegisteredLines("Receipt") +
                         " union all select trim(Barcode), -ifnull(Qty, 0)" + RegisteredLines("Dispatch"));
  select.Bind(1, store);
  select.Bind(2, IsoText(period.from));
  select.Bind(3, IsoText(period.to));
  std::map<std::string, double> stock;
  while (select.Step()) stock[std::string(select.Text(0))] += select.Real(1);
  for (auto& [barcode, quantity] : stock) quantity = Round(quantity, kStockDecimals);
  return stock;
}

std::optional<double> LatestRate(SqliteConnection& connection, int store, const std::string& barcode,
                                 const Period& period) {
  const std::optional<double> dispatched = LatestValue(connection, "Dispatch", store, barcode, period);
  return dispatched ? dispatched : LatestValue(connection, "Receipt", store, barcode, period);
}

void WriteTotals(SqliteConnection& connection, const Period& period) {
  RowWriter goods = RowWriter::Updates(connection, "tblGood");
  for (const auto& [barcode, quantity] : BookStock(connection, kAllStores, period)) {
    goods.Write({{"Barcode", barcode}, {"TotalQty", quantity}});
  }
}

}  // namespace koru::sample
