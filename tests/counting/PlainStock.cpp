#include "tests/counting/PlainStock.h"

#include <cmath>

#include "platform/text/Numbers.h"

namespace koru::test {
namespace {

std::string LinesOf(const std::string& kind) {
  return " from tblInventory" + kind + "Detail join tblInventory" + kind + " on ID = " + kind +
         "ID where ReceiveDate between '2025-03-21' and '2026-03-20' and Code is not null and (InventoryID "
         "= 1 or InventoryID in (select ChildID from tblInventoryParent where ID = 1))"
         " and ltrim(rtrim(Barcode)) = ?1 collate KORU";
}

}  // namespace

PlainLine PlainStock::LineOf(const std::string& barcode) {
  PlainLine line;
  line.barcode = barcode;
  FindUnit(line);
  FindRate(line);
  line.books = std::round((Sum("Receipt", barcode) - Sum("Dispatch", barcode)) * 1e6) / 1e6;
  return line;
}

std::vector<PlainLine> PlainStock::LinesOfAllGoods() {
  std::vector<PlainLine> lines;
  SqliteStatement goods =
      connection_.Prepare("select Barcode, ifnull(Code, ''), Name from tblGood where Barcode <> ''");
  while (goods.Step()) {
    PlainLine& line = lines.emplace_back(LineOf(std::string(goods.Text(0))));
    line.code = goods.Text(1);
    line.name = goods.Text(2);
  }
  return lines;
}

double PlainStock::Sum(const std::string& kind, const std::string& barcode) {
  SqliteStatement sum = connection_.Prepare("select ifnull(sum(Qty), 0)" + LinesOf(kind));
  sum.Bind(1, barcode);
  sum.Step();
  return sum.Real(0);
}

void PlainStock::FindRate(PlainLine& line) {
  for (const std::string kind : {"Dispatch", "Receipt"}) {
    SqliteStatement rates = connection_.Prepare(
        "select Value" + LinesOf(kind) +
        " and Barcode = ?1 and Value > 0 order by ReceiveDate desc, ID desc, tblInventory" + kind +
        "Detail.rowid desc");
    rates.Bind(1, line.barcode);
    if (!rates.Step()) continue;
    line.rate = NumberText(rates.Real(0));
    return;
  }
}

void PlainStock::FindUnit(PlainLine& line) {
  for (const char* which : {"ID in (select ScaleID from tblGoodSaleScale where Barcode = ?1)", "?1 <> ''"}) {
    SqliteStatement units =
        connection_.Prepare("select ID, Name from tblGoodScale where ScaleToBaseParent = 1 and " +
                            std::string(which) + " order by ID");
    units.Bind(1, line.barcode);
    if (!units.Step()) continue;
    line.unit = units.Text(0);
    line.unitName = units.Text(1);
    return;
  }
}

}  // namespace koru::test
