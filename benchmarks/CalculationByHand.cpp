#include <sqlite3.h>

#include <string>
#include <vector>

#include "benchmarks/Limits.h"
#include "benchmarks/PlainStatement.h"

namespace koru::bench {
namespace {

/// For each key of a kind of document the date as a number; -1 for documents outside the scope.
std::vector<int> DocumentsInScope(const PlainConnection& connection, const std::string& kind) {
  std::vector<int> days;
  PlainStatement documents(
      connection,
      "select ID, julianday(ReceiveDate) from tblInventory" + kind +
          " where ReceiveDate >= '2025-03-21' and ReceiveDate <= '2026-03-20' and Code is not null and"
          " (InventoryID = 1 or InventoryID in (select ChildID from tblInventoryParent where ID = 1))");
  while (documents.Step()) {
    const auto id = static_cast<std::size_t>(documents.Integer(0));
    if (id >= days.size()) days.resize(id + id / 2 + 1, -1);
    days[id] = static_cast<int>(documents.Integer(1));
  }
  return days;
}

/// Calls `line` for each line of each of the documents.
template <class Line>
void ForEachLine(const PlainConnection& connection, const std::string& kind, const Line& line) {
  const std::vector<int> days = DocumentsInScope(connection, kind);
  PlainStatement lines(
      connection, "select Barcode, Qty, Value from tblInventory" + kind + "Detail where " + kind + "ID = ?");
  for (std::size_t id = 0; id < days.size(); ++id) {
    if (days[id] < 0) continue;
    lines.Bind(1, static_cast<std::int64_t>(id));
    while (lines.Step()) line(lines, days[id]);
    lines.Reset();
  }
}

void Keep(double value, int day, double& rate, int& rateDay) {
  if (value <= 0 || day <= rateDay) return;
  rate = value;
  rateDay = day;
}

}  // namespace

GoodStates CalculateByHand(const PlainConnection& connection) {
  connection.Execute("BEGIN");
  GoodStates goods;
  goods.reserve(65536);
  std::string barcode;
  ForEachLine(connection, "Receipt", [&](const PlainStatement& line, int day) {
    GoodState& good = goods[barcode = line.Text(0)];
    good.quantity += line.Real(1);
    Keep(line.Real(2), day, good.receiptRate, good.receiptDay);
  });
  ForEachLine(connection, "Dispatch", [&](const PlainStatement& line, int day) {
    GoodState& good = goods[barcode = line.Text(0)];
    good.quantity -= line.Real(1);
    Keep(line.Real(2), day, good.dispatchRate, good.dispatchDay);
  });
  PlainStatement units(connection,
                       "select Barcode, ScaleID from tblGoodSaleScale join tblGoodScale on ID = ScaleID"
                       " where ScaleToBaseParent = 1");
  while (units.Step()) goods[barcode = units.Text(0)].unit = static_cast<int>(units.Integer(1));
  connection.Execute("COMMIT");
  return goods;
}

}  // namespace koru::bench
