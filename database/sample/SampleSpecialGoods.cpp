#include "database/sample/SampleSpecialGoods.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "database/sample/SampleGoods.h"
#include "database/sample/SampleGroups.h"
#include "database/sample/SampleMovements.h"
#include "database/sample/SampleRows.h"
#include "database/sample/SampleStores.h"
#include "database/sample/SampleUnits.h"

namespace koru::sample {
namespace {

constexpr int kMaker = 9;
constexpr int kWarehouseGroup = 41;

struct Row {
  SpecialGood good;
  std::string_view code;
  std::string_view name;
  double price;
  int unit = kPiece;
};

constexpr Row kRows[] = {
    {SpecialGood::StockOf5, "R001", "دستكش كار چرمي", 3},
    {SpecialGood::BelowZero, "R002", "ماسك فيلتردار", 250000},
    {SpecialGood::NoDocuments, "R003", "كلاه ايمني", 1200000},
    {SpecialGood::RateOfReceipt, "R004", "عينك محافظ", 1900},
    {SpecialGood::NotRegistered, "R005", "گوشي ايمني", 480000},
    {SpecialGood::BlanksAroundBarcode, "R006", "طناب كار 10 متري", 1100},
    {SpecialGood::Tenths, "R007", "گريس نسوز", 5200, kKilogram},
};

void WriteRows(SqliteConnection& connection) {
  RowWriter goods = RowWriter::Inserts(connection, "tblGood");
  RowWriter units = RowWriter::Inserts(connection, "tblGoodSaleScale");
  for (const Row& row : kRows) {
    const std::string barcode = BarcodeOf(row.good);
    goods.Write({{"Barcode", barcode},
                 {"Code", row.code},
                 {"Name", row.name},
                 {"RetailPrice", row.price},
                 {"SaleScaleID", row.unit},
                 {"PurchaseScaleID", row.unit},
                 {"TypeID", kOwnUse},
                 {"GoodGroupID", kWarehouseGroup}});
    if (row.good != SpecialGood::NoDocuments) units.Write({{"Barcode", barcode}, {"ScaleID", row.unit}});
  }
}

DocumentLine Line(std::string barcode, double quantity, std::optional<double> value, int unit = kPiece) {
  return {.barcode = std::move(barcode),
          .quantity = quantity,
          .unit = unit,
          .unitQuantity = quantity,
          .value = value};
}

DocumentLine Weighed(double kilograms) {
  return Line(BarcodeOf(SpecialGood::Tenths), kilograms, 4800, kKilogram);
}

}  // namespace

std::string BarcodeOf(SpecialGood good) { return Barcode(kMaker, static_cast<int>(good)); }

void WriteSpecialGoods(SqliteConnection& connection, DocumentBook& book) {
  WriteRows(connection);
  const auto write = [&book](DocumentKind kind, int day, bool registered, std::vector<DocumentLine> lines) {
    book.Write({.kind = kind,
                .store = kReturnsStore,
                .creator = 1,
                .day = Day(kSecondYear, 12, day),
                .registered = registered,
                .lines = std::move(lines)});
  };
  const std::string blanks = " " + BarcodeOf(SpecialGood::BlanksAroundBarcode) + "  ";
  write(DocumentKind::Receipt, 1, true,
        {Line(BarcodeOf(SpecialGood::StockOf5), 8, 2), Line(BarcodeOf(SpecialGood::RateOfReceipt), 10, 1400),
         Line(BarcodeOf(SpecialGood::BlanksAroundBarcode), 3, 900), Weighed(0.1)});
  write(DocumentKind::Dispatch, 3, true,
        {Line(BarcodeOf(SpecialGood::StockOf5), 3, 2), Line(BarcodeOf(SpecialGood::BelowZero), 4, 180000),
         Line(BarcodeOf(SpecialGood::RateOfReceipt), 2, 0), Weighed(0.3)});
  write(DocumentKind::Receipt, 5, true,
        {Line(BarcodeOf(SpecialGood::RateOfReceipt), 1, 1500), Line(blanks, 4, 950), Weighed(0.2)});
  write(DocumentKind::Receipt, 6, false, {Line(BarcodeOf(SpecialGood::NotRegistered), 20, 350000)});
  write(DocumentKind::Dispatch, 7, false, {Line(BarcodeOf(SpecialGood::NotRegistered), 2, 360000)});
}

}  // namespace koru::sample
